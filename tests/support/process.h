// Runs a real process in a test, and keeps a folder for what it reads and writes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessera {

struct ProcessResult {
  int status = -1;  // exit status, or 128 + the signal
  std::string out;
  std::string err;
};

struct ProcessCall {
  std::vector<std::string> words;  // the executable's path, and its arguments
  std::string input = {};
  std::vector<std::string> environment = {};  // "NAME=value" on top of the test's own; "NAME" removes
  std::filesystem::path folder = {};          // working directory; empty: the test's own
};

// Waits for the end of the process.
ProcessResult RunProcess(const ProcessCall& call);

// A new folder that vanishes with its owner.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::filesystem::path& path() const { return path_; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  // Writes a file below the folder, with the folders on its way, and returns its path.
  std::string Write(const std::string& name, const std::string& bytes) const;

 private:
  std::filesystem::path path_;
};

std::string ReadBytes(const std::filesystem::path& file);

}  // namespace tessera
