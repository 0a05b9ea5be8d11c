// The edge between program text (Windows-1252 bytes) and the outside (UTF-8).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tessera {

// The 16-bit code of a program character.
char16_t CodeOfByte(unsigned char byte);

// Program text as UTF-8. Every byte has a code point, so this never fails.
std::string ToUtf8(std::string_view text);

// Where a conversion from UTF-8 stopped: the offset in bytes of the first character without a byte of the
// code page, or of the first malformed sequence.
struct Utf8Problem {
  std::size_t offset;
  bool malformed;
};

// UTF-8 as program text, or the first problem.
std::variant<std::string, Utf8Problem> FromUtf8(std::string_view utf8);

// Whether bytes are UTF-8 and not plain ASCII alone. With `isCut` more bytes follow, and the last character
// may be a part.
bool IsUtf8BeyondAscii(std::string_view bytes, bool isCut);

// UTF-8 as program text; what the code page lacks, and malformed bytes, become "?".
std::string FromUtf8Lossy(std::string_view utf8);

}  // namespace tessera
