#include "platform/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "platform/failure.h"

namespace tessera {

namespace {

[[noreturn]] void FailStart(int error) {
  if (error == ENOENT || error == ENOTDIR) Fail(53);
  if (error == EACCES || error == EPERM || error == ENOEXEC) Fail(70);
  FailArgument();
}

// How the new process begins: a session of its own, apart from this one's input and output, and no signal
// blocked or ignored.
class SpawnSettings {
 public:
  SpawnSettings() {
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    sigset_t ignored;
    sigemptyset(&ignored);
    sigaddset(&ignored, SIGXFSZ);
    sigaddset(&ignored, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &ignored);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnSettings() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
};

// The texts as the system takes a list of words; they outlive it.
std::vector<char*> Words(std::vector<std::string>& texts) {
  std::vector<char*> words;
  for (std::string& text : texts) words.push_back(text.data());
  words.push_back(nullptr);
  return words;
}

}  // namespace

int StartProgram(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
  if (command.empty()) FailArgument();
  std::vector<std::string> variables = environment;
  for (char** variable = environ; *variable != nullptr; ++variable) variables.emplace_back(*variable);
  std::vector<std::string> words = command;
  const SpawnSettings settings;
  pid_t process = 0;
  const int error = posix_spawnp(&process, words.front().c_str(), &settings.actions, &settings.attributes,
                                 Words(words).data(), Words(variables).data());
  if (error != 0) FailStart(error);
  return process;
}

void ForgetEnded(std::vector<int>& processes) {
  std::erase_if(processes, [](int process) { return waitpid(process, nullptr, WNOHANG) != 0; });
}

std::vector<std::string> CommandWords(const std::string& line) {
  std::vector<std::string> words;
  bool isQuoted = false;
  bool isInWord = false;
  for (const char c : line) {
    if (c == '"') {
      isQuoted = !isQuoted;
      if (!isInWord) words.emplace_back();
      isInWord = true;
    } else if (c == ' ' && !isQuoted) {
      isInWord = false;
    } else {
      if (!isInWord) words.emplace_back();
      isInWord = true;
      words.back() += c;
    }
  }
  return words;
}

}  // namespace tessera
