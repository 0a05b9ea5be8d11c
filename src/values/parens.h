// Parenthesis marks: a text is rewritten so that each parenthesis tells its nesting level, which lets the
// argument text of a call be cut out by two searches. "Seno(a(1))" becomes "Seno(1]a(2]1[2)[1)".
#pragma once

#include <string>
#include <string_view>

namespace tessera {

// Levels count from 1, in decimal. Quoted text is not spared.
std::string MarkParens(std::string_view text);

// Undoes the marks of one digit; marks of deeper levels stay.
std::string StripParens(std::string_view text);

}  // namespace tessera
