// The lines of an event script that tell what a person did, as program text.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "windows/input.h"

namespace tessera {

// The words with a blank between them.
std::string ActLine(std::initializer_list<std::string_view> words);

// A number in the place of a word, exact enough to be read back as the same pixel.
std::string ActNumber(double value);

// The line that puts a caret, with a selection from the first place on.
std::string CaretLine(std::string_view name, std::size_t anchor, std::size_t caret);

// The line for a key that is pressed and let go; empty for one without a code, and for those that only hold.
std::string KeyLine(int keyCode, KeyShift shift);

// The lines that type a text, as far as its characters can be typed: a line can't end with a blank, and a
// break is a key.
std::vector<std::string> TypingLines(std::string_view text);

}  // namespace tessera
