// Whole transfers over a descriptor of the system: what a signal interrupts, or the system takes in pieces,
// goes on until it is done. Failures are the system's error numbers; 0 is none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// Writes all of `bytes` at the descriptor's own place. What was written is taken off their front, also where
// the rest fails.
int WriteAll(int descriptor, std::string_view& bytes);

// The same from an offset of the file on.
int WriteAllAt(int descriptor, std::uint64_t offset, std::string_view& bytes);

// Appends up to `most` bytes from the descriptor's own place; none at the end.
int ReadSome(int descriptor, std::size_t most, std::string& bytes);

// The same from an offset of the file on.
int ReadSomeAt(int descriptor, std::uint64_t offset, std::size_t most, std::string& bytes);

}  // namespace tessera
