// Why the system refused, for the person at the terminal.
#pragma once

#include <string>

namespace tessera {

// A system error number (errno) in Portuguese, in UTF-8.
std::string SystemReason(int error);

}  // namespace tessera
