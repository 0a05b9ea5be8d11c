// A process of the tool's own, with a file as its input and another one for all that it writes.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessera {

struct ChildCall {
  std::vector<std::string> words;             // the program, by a path or a name, and its arguments
  std::vector<std::string> environment = {};  // "NAME=value", in front of this process's own
  std::filesystem::path input = "/dev/null";
  std::filesystem::path output = "/dev/null";  // standard output and errors, in their order; added to
  std::filesystem::path folder = "/";          // where it works
};

// The process number, or the negative error number of the system.
pid_t StartChild(ChildCall call);

// Waits for its end. The exit status, or 128 and the signal; nothing where the time was over, or the system
// asks this process to end: then the child has been ended too.
std::optional<int> AwaitChild(pid_t process, std::chrono::milliseconds patience);

}  // namespace tessera
