#include "support/process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <thread>

namespace tessera {

namespace {

[[noreturn]] void BecomeCalled(const ProcessCall& call, const TemporaryFolder& files) {
  for (const std::string& entry : call.environment) {
    const std::size_t mark = entry.find('=');
    if (mark == std::string::npos) {
      unsetenv(entry.c_str());
    } else {
      setenv(entry.substr(0, mark).c_str(), entry.substr(mark + 1).c_str(), 1);
    }
  }
  if (!call.folder.empty() && chdir(call.folder.c_str()) != 0) _exit(127);
  const bool redirected = std::freopen((files / "in").c_str(), "rb", stdin) != nullptr &&
                          std::freopen((files / "out").c_str(), "wb", stdout) != nullptr &&
                          std::freopen((files / "err").c_str(), "wb", stderr) != nullptr;
  if (!redirected) _exit(127);
  std::vector<std::string> words = call.words;
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  execv(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

ProcessResult RunProcess(const ProcessCall& call) {
  RunningProcess process(call);
  const int status = process.Wait();
  return {.status = status, .out = process.Out(), .err = process.Err()};
}

RunningProcess::RunningProcess(const ProcessCall& call) {
  files_.Write("in", call.input);
  process_ = fork();
  if (process_ == 0) BecomeCalled(call, files_);
}

RunningProcess::~RunningProcess() {
  if (status_) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

void RunningProcess::Signal(int number) const {
  kill(process_, number);
}

int RunningProcess::Wait() {
  int status = 0;
  if (!status_ && waitpid(process_, &status, 0) == process_) TakeStatus(status);
  return status_.value_or(-1);
}

std::optional<int> RunningProcess::WaitFor(std::chrono::milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (!status_ && std::chrono::steady_clock::now() < end) {
    int status = 0;
    if (waitpid(process_, &status, WNOHANG) == process_) TakeStatus(status);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return status_;
}

void RunningProcess::TakeStatus(int status) {
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace tessera
