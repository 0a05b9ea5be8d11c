#include "tool/test_run.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"
#include "platform/system_reason.h"
#include "platform/termination.h"
#include "platform/whole_file.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMostToCopy = 256u << 20;

// A folder of its own, gone with the object.
class Workshop {
 public:
  Workshop() : path_(fs::temp_directory_path().string() + "/tessera-teste-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) path_.clear();
  }
  ~Workshop() {
    std::error_code error;
    if (!path_.empty()) fs::remove_all(path_, error);
  }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;

  bool IsThere() const { return !path_.empty(); }
  fs::path operator/(std::string_view name) const { return fs::path(path_) / name; }

 private:
  std::string path_;
};

// Why the folder could not be copied, or empty.
std::string CopyFolder(const fs::path& from, const fs::path& to) {
  std::error_code error;
  std::uintmax_t bytes = 0;
  fs::create_directory(to, error);
  for (fs::recursive_directory_iterator entry(from, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path place = to / entry->path().lexically_relative(from);
    if (entry->is_directory(error)) {
      fs::create_directory(place, error);
    } else if (entry->is_regular_file(error)) {
      bytes += entry->file_size(error);
      if (bytes > kMostToCopy)
        return from.string() +
               ": a pasta tem mais de 256 MB; ponha o programa e os seus testes em uma pasta só deles";
      fs::copy_file(entry->path(), place, error);
    }
  }
  return error ? from.string() + ": não foi possível copiar a pasta: " + SystemReason(error.value())
               : std::string();
}

// A process with a file as its input, and another one for all that it writes.
struct Call {
  std::vector<std::string> words;
  std::vector<std::string> environment;  // in front of this process's own
  fs::path input;
  fs::path output;
  fs::path folder = "/";  // where it works
};

// Its number, or the negative error number.
pid_t Start(Call call) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, call.folder.c_str());
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, call.input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, call.output.c_str(),
                                   O_WRONLY | O_CREAT | O_APPEND, 0600);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view text(*variable);
    if (!text.starts_with("DISPLAY=") && !text.starts_with("WAYLAND_DISPLAY="))
      call.environment.emplace_back(text);
  }
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

// The exit status, 128 and the signal; nothing where the time was over or the person wished an end: then the
// process has been ended.
std::optional<int> Await(pid_t process, std::chrono::milliseconds patience) {
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

std::string Written(const fs::path& file) {
  auto read = ReadWholeFile(file.string());
  std::string* bytes = std::get_if<std::string>(&read);
  return bytes == nullptr ? std::string() : std::move(*bytes);
}

bool Write(const fs::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream << bytes;
  stream.close();
  return !stream.fail();
}

}  // namespace

TestRun RunTest(const ProgramTest& test, const TestContent& content, const TestSetting& setting) {
  TestRun run;
  const Workshop workshop;
  const bool isFolder = fs::is_directory(test.program);
  const fs::path home = isFolder ? test.program : test.program.parent_path();
  // A folder keeps its name, which is the program's.
  std::error_code error;
  const fs::path copy = workshop / fs::canonical(home.empty() ? "." : home, error).filename().string();
  if (!workshop.IsThere() || !Write(workshop / "roteiro", content.script)) {
    run.problem = "a pasta dos arquivos temporários não pode ser escrita";
    return run;
  }
  run.problem = CopyFolder(home.empty() ? fs::path(".") : home, copy);
  if (!run.problem.empty()) return run;

  Call call{.words = {"/proc/self/exe", "run", "--no-check"},
            .environment = {"XDG_DATA_HOME=" + (workshop / "dados").string(),
                            "XDG_CONFIG_HOME=" + (workshop / "ajustes").string()},
            .input = workshop / "roteiro",
            .output = workshop / "saida",
            .folder = copy};
  if (setting.windows) {
    call.words.insert(call.words.end(), {"--script", "-"});
  } else {
    call.words.emplace_back("--console");
  }
  call.words.push_back((isFolder ? copy : copy / test.program.filename()).string());
  call.words.emplace_back("--");
  call.words.insert(call.words.end(), content.arguments.begin(), content.arguments.end());

  const auto begin = std::chrono::steady_clock::now();
  const pid_t process = Start(call);
  if (process < 0) {
    run.problem = "o programa não pôde ser iniciado: " + SystemReason(-process);
    return run;
  }
  const std::optional<int> status = Await(process, setting.patience);
  run.time = std::chrono::steady_clock::now() - begin;
  run.output = Written(call.output);
  if (!status) {
    run.problem = termination::IsAsked() ? "interrompido"
                                         : "o programa não terminou em " +
                                               std::to_string(setting.patience.count()) + " segundos";
  } else if (*status != 0) {
    run.output += "[estado] " + std::to_string(*status) + "\n";
  }
  return run;
}

std::string Difference(const std::string& expected, const std::string& output) {
  const Workshop workshop;
  const fs::path nothing = "/dev/null";
  if (!workshop.IsThere() || !Write(workshop / "esperado", expected) || !Write(workshop / "obtido", output))
    return "a diferença não pode ser mostrada: a pasta dos arquivos temporários não pode ser escrita\n";
  const pid_t process = Start({.words = {"diff", "-u", "--label", "esperado", "--label", "obtido",
                                         (workshop / "esperado").string(), (workshop / "obtido").string()},
                               .environment = {"LC_ALL=C.UTF-8"},
                               .input = nothing,
                               .output = workshop / "diferença"});
  if (process < 0) return "a diferença não pode ser mostrada: instale o pacote diffutils\n";
  constexpr std::chrono::seconds kPatience{60};
  Await(process, kPatience);
  return Written(workshop / "diferença");
}

}  // namespace tessera
