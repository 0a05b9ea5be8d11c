// What the outside refuses to the network's commands.
#pragma once

#include <string_view>

namespace tessera {

// Failure 68, its description with the reason (program text) behind it.
[[noreturn]] void FailDevice(std::string_view reason);

}  // namespace tessera
