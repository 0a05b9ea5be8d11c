#include "tool/test_run.h"

#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <vector>

#include "platform/system_reason.h"
#include "platform/termination.h"
#include "platform/whole_file.h"
#include "tool/child.h"
#include "tool/workshop.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMostToCopy = 256u << 20;

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

  ChildCall call{.words = {"/proc/self/exe", "run", "--no-check"},
                 .environment = {"XDG_DATA_HOME=" + (workshop / "dados").string(),
                                 "XDG_CONFIG_HOME=" + (workshop / "ajustes").string()},
                 .input = workshop / "roteiro",
                 .output = workshop / "saida",
                 .folder = copy};
  if (!setting.record.empty()) {
    call.words.insert(call.words.end(), {"--record", setting.record.string()});
  } else {
    call.environment.emplace_back("QT_QPA_PLATFORM=offscreen");
    call.words.emplace_back(setting.windows ? "--script=-" : "--console");
  }
  call.words.push_back((isFolder ? copy : copy / test.program.filename()).string());
  call.words.emplace_back("--");
  call.words.insert(call.words.end(), content.arguments.begin(), content.arguments.end());

  const auto begin = std::chrono::steady_clock::now();
  const pid_t process = StartChild(call);
  if (process < 0) {
    run.problem = "o programa não pôde ser iniciado: " + SystemReason(-process);
    return run;
  }
  const std::optional<int> status = AwaitChild(process, setting.patience);
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
  const pid_t process =
      StartChild({.words = {"diff", "-u", "--label", "esperado", "--label", "obtido",
                            (workshop / "esperado").string(), (workshop / "obtido").string()},
                  .environment = {"LC_ALL=C.UTF-8"},
                  .input = nothing,
                  .output = workshop / "diferença"});
  if (process < 0) return "a diferença não pode ser mostrada: instale o pacote diffutils\n";
  constexpr std::chrono::seconds kPatience{60};
  AwaitChild(process, kPatience);
  return Written(workshop / "diferença");
}

}  // namespace tessera
