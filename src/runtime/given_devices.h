// What whoever starts a program gives it in the place of devices.
#pragma once

#include <string>

namespace tessera {

// Why a microphone's file, or a camera's picture or folder, is none, in the user's language; empty where both
// can be used. An empty path is not given.
std::string ProblemOfDevices(const std::string& microphone, const std::string& camera);

}  // namespace tessera
