// What the environment says of a display.
#pragma once

#include <string_view>
#include <vector>

namespace tessera {

// The variables that speak of one; empty where none does. Whether a display answers, the host with windows
// finds out.
std::vector<std::string_view> NamedDisplays();

}  // namespace tessera
