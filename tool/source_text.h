// A source file's bytes as program text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace tessera {

// Where a source cannot become program text: line and column in characters, from 1, and why, in UTF-8.
struct SourceProblem {
  std::size_t line;
  std::size_t column;
  std::string reason;
};

// UTF-8, with or without a byte-order mark, or, where the bytes are not valid UTF-8, Windows-1252. A line end
// of either form becomes CR LF. Refused: a character that the code page lacks, and the character 0.
std::variant<std::string, SourceProblem> SourceTextFromBytes(std::string_view bytes);

}  // namespace tessera
