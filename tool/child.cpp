#include "tool/child.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "platform/descriptor.h"
#include "platform/termination.h"

namespace tessera {

pid_t StartChild(ChildCall call) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, call.folder.c_str());
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, call.input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, call.output.c_str(),
                                   O_WRONLY | O_CREAT | O_APPEND, 0600);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  for (char** variable = environ; *variable != nullptr; ++variable) call.environment.emplace_back(*variable);
  const auto pointers = [](std::vector<std::string>& texts) {
    std::vector<char*> list;
    for (std::string& text : texts) list.push_back(text.data());
    list.push_back(nullptr);
    return list;
  };
  pid_t process = 0;
  const int error = posix_spawnp(&process, call.words.front().c_str(), &actions, nullptr,
                                 pointers(call.words).data(), pointers(call.environment).data());
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? process : -error;
}

std::optional<int> AwaitChild(pid_t process, std::chrono::milliseconds patience) {
  const Descriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  std::array<pollfd, 2> waits = {pollfd{.fd = handle.number(), .events = POLLIN, .revents = 0},
                                 pollfd{.fd = termination::Descriptor(), .events = POLLIN, .revents = 0}};
  const bool inTime = poll(waits.data(), waits.size(), static_cast<int>(patience.count())) > 0;
  const bool hasEnded = inTime && waits[0].revents != 0;
  if (!hasEnded) kill(process, SIGKILL);
  int status = 0;
  waitpid(process, &status, 0);
  if (!hasEnded) return std::nullopt;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace tessera
