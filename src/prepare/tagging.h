// First stages of preparation: every line gets a head that tells where it came from, comments go, semicolons
// split lines, comparison operators get their blanks, and the statements are numbered.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// The text of one editor with "§#line$#editor " in front of each trimmed line. Only CR LF ends a line.
std::string TagSourceLines(std::string_view text, std::int16_t editor);

// Tagged text without comments, split at semicolons, with blanks at the comparison operators.
std::string NormaliseSource(std::string_view text);

// Normalised text with full heads; empty statements are dropped and take no number.
std::string NumberStatements(std::string_view text);

}  // namespace tessera
