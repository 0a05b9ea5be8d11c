#include "support/process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

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
  const TemporaryFolder files;
  files.Write("in", call.input);
  const pid_t child = fork();
  if (child == 0) BecomeCalled(call, files);
  int status = 0;
  waitpid(child, &status, 0);
  return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
          .out = ReadBytes(files / "out"),
          .err = ReadBytes(files / "err")};
}

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tessera-test-XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& bytes) const {
  const std::filesystem::path file = path_ / name;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
  return file.string();
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace tessera
