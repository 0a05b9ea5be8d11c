// Sections of an executable (ELF, 64 bits, lowest byte first), as far as a program inside it needs them. A
// section that the system does not load is kept by tools that take away what an executable does not need.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::elf {

// True if the bytes begin as an executable of this kind does.
bool IsElf(std::string_view file);

// True where the file ends before its last section's header.
bool IsCut(std::string_view file);

// The bytes of the first section of that name; nothing where there is none, or no whole one.
std::optional<std::string_view> FindSection(std::string_view file, std::string_view name);

// What the system loads: the segments' bytes in the order of the file, without the file's own header, which
// tells where the sections are.
std::vector<std::string_view> LoadedBytes(std::string_view file);

// The file with one more section, which is not loaded. Nothing for a file whose sections can't be read.
std::optional<std::string> WithSection(std::string_view file, std::string_view name,
                                       std::string_view content);

}  // namespace tessera::elf
