// The plain money form of a number: "1.234,50".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

// A number text, its decimal mark being ".", in groups of three with at least `places` (0 to 6) decimal
// digits; further digits stay while they are not zero, and nothing is rounded. Nothing for more than 12
// integer digits.
std::optional<std::string> FormatStandard(std::string_view number, std::size_t places);

}  // namespace tessera
