// What a `Texto` that takes numbers alone makes of each typed character, and what numbers look like when they
// are pasted.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

// Decimals that such a text takes.
// OPEN: no property of the text tells a number of them; these are those of an amount of money.
inline constexpr std::size_t kNumericDecimals = 2;

// The character that the text gets for a typed one, `selStart` characters standing before the place; nothing
// where it is swallowed. Backspace, Enter and Esc are their codes: 8, 13, 27.
std::optional<char> NumericFilter(std::string_view text, std::size_t selStart, char typed,
                                  std::size_t decimals = kNumericDecimals);

// A number's text without the points that group its digits by thousands. A single point in a text without a
// "," is a decimal mark.
std::string WithoutGroupMarks(std::string_view text);

}  // namespace tessera
