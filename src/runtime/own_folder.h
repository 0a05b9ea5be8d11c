// Where the running executable lies.
#pragma once

#include <filesystem>
#include <vector>

namespace tessera {

// Its folder, absolute, links followed.
std::filesystem::path OwnFolder();

// Where the system's parts may lie: beside the executable, where they are installed, and where they were
// built, in that order. A finished program lies anywhere.
const std::vector<std::filesystem::path>& PartFolders();

// The runtime that is installed beside the running tool.
std::filesystem::path SiblingRuntime();

}  // namespace tessera
