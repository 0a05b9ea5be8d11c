// A record file opened for the tool.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "platform/binary_file.h"
#include "recorddb/tsa_reader.h"

namespace tessera {

struct BdFile {
  std::unique_ptr<BinaryFile> file;
  TsaHeader header;
};

// The file with its header read, or what is wrong with it, in Portuguese.
std::variant<BdFile, std::string> OpenBdFile(const std::string& path);

// The file without a look at its header.
std::variant<std::unique_ptr<BinaryFile>, std::string> OpenRawFile(const std::string& path);

}  // namespace tessera
