// Where the running executable lies.
#pragma once

#include <filesystem>

namespace tessera {

// Its folder, absolute, links followed.
std::filesystem::path OwnFolder();

// The runtime that is installed beside the running tool.
std::filesystem::path SiblingRuntime();

}  // namespace tessera
