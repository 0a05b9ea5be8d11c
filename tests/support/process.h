// Runs a real process in a test.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

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

// A process beside the test. It is killed with its owner.
class RunningProcess {
 public:
  explicit RunningProcess(const ProcessCall& call);
  RunningProcess(const RunningProcess&) = delete;
  RunningProcess& operator=(const RunningProcess&) = delete;
  ~RunningProcess();

  // What it has written until now.
  std::string Out() const { return ReadBytes(files_ / "out"); }
  std::string Err() const { return ReadBytes(files_ / "err"); }

  void Signal(int number) const;

  // Its exit status, or 128 + the signal.
  int Wait();
  // The same, or nothing where it still runs after that time.
  std::optional<int> WaitFor(std::chrono::milliseconds time);

 private:
  void TakeStatus(int status);

  TemporaryFolder files_;
  pid_t process_ = 0;
  std::optional<int> status_;
};

}  // namespace tessera
