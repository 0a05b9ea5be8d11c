#include "tool/test_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <set>
#include <sstream>
#include <string_view>

#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "tool/program_files.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kScript = ".roteiro";
constexpr std::string_view kOutput = ".saida";
constexpr std::string_view kBoth = ".teste";
constexpr std::string_view kArguments = ".argumentos";
constexpr std::string_view kDivider = "=== saida ===\n";

fs::path With(const fs::path& stem, std::string_view extension) {
  return stem.string() + std::string(extension);
}

bool IsTestFile(const fs::path& file) {
  const std::string extension = file.extension().string();
  return extension == kScript || extension == kOutput || extension == kBoth;
}

bool HasProgramFile(const fs::path& folder, const std::string& stem) {
  std::error_code error;
  return fs::is_regular_file(folder / (stem + ".tsc"), error);
}

// A folder with a main editor is one program, whatever other editors it has.
bool IsProgramFolder(const fs::path& folder) {
  std::error_code error;
  return HasProgramFile(folder, fs::canonical(folder, error).filename().string()) ||
         HasProgramFile(folder, "Principal");
}

// True if the file is the main editor of that folder's program.
bool IsMainEditor(const fs::path& file, const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) return false;
  const fs::path name = fs::canonical(folder, error).filename();
  const fs::path main = HasProgramFile(folder, name.string()) ? name : fs::path("Principal");
  return fs::equivalent(file, folder / (main.string() + ".tsc"), error);
}

// The program that a test stands beside; empty where there is none.
fs::path ProgramOf(const fs::path& stem) {
  fs::path folder = stem.parent_path();
  if (IsProgramFolder(folder)) return folder;
  std::string name = stem.filename().string();
  for (;;) {
    if (HasProgramFile(folder, name)) return folder / (name + ".tsc");
    std::error_code error;
    if (fs::is_directory(folder / name, error)) return folder / name;
    const std::size_t point = name.rfind('.');
    if (point == std::string::npos) return {};
    name.resize(point);
  }
}

// The stems of the tests in a folder and those below it.
void CollectStems(const fs::path& folder, std::set<fs::path>& stems) {
  std::error_code error;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
  for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    if (entry->path().filename().string().starts_with('.')) {
      entry.disable_recursion_pending();
    } else if (IsTestFile(entry->path()) && entry->is_regular_file(error)) {
      stems.insert(fs::path(entry->path()).replace_extension());
    }
  }
}

// The content of a file, or nothing where there is none.
std::variant<std::optional<std::string>, std::string> ReadIfThere(const fs::path& file) {
  auto read = ReadWholeFile(file.string());
  if (auto* bytes = std::get_if<std::string>(&read)) return std::optional(std::move(*bytes));
  const int error = std::get<SystemError>(read).number;
  if (error == ENOENT) return std::nullopt;
  return file.string() + ": não foi possível ler o arquivo: " + SystemReason(error);
}

// Writes a file whole; empty, or why it could not be written.
std::string Written(const fs::path& file, const std::string& bytes) {
  const int error = ReplaceFile(file.string(), bytes, NewFilePermissions());
  return error == 0 ? std::string() : file.string() + ": não foi possível gravar: " + SystemReason(error);
}

}  // namespace

std::variant<std::vector<ProgramTest>, std::string> FindTests(const std::string& path) {
  std::error_code error;
  const fs::path given(path);
  const fs::file_type type = fs::status(given, error).type();
  if (type == fs::file_type::not_found) return path + ": não encontrado";
  const bool isFolder = type == fs::file_type::directory;
  const fs::path base = isFolder ? given : given.parent_path();
  std::set<fs::path> stems;
  CollectStems(base.empty() ? fs::path(".") : base, stems);

  std::vector<ProgramTest> tests;
  for (const fs::path& stem : stems) {
    fs::path program = ProgramOf(stem);
    const bool isMeant = isFolder || fs::equivalent(program, given, error) || IsMainEditor(given, program) ||
                         (IsTestFile(given) && stem.filename() == given.stem());
    if (!isMeant) continue;
    tests.push_back({.name = stem.lexically_proximate(base.empty() ? fs::path(".") : base).string(),
                     .program = std::move(program),
                     .stem = stem,
                     .isOneFile = fs::exists(With(stem, kBoth), error)});
  }
  if (tests.empty()) return path + ": nenhum teste (Nome.roteiro com Nome.saida, ou Nome.teste)";
  return tests;
}

std::variant<ProgramTest, std::string> TestFor(const std::string& program, const std::string& script) {
  auto loaded = LoadProgram(program);
  if (LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) return std::move(problem->message);
  std::error_code error;
  const fs::path given(program);
  ProgramTest test;
  test.program = given;
  if (!script.empty()) {
    test.stem = fs::path(script);
    if (test.stem.extension() == kScript) test.stem.replace_extension();
  } else if (fs::is_directory(given, error)) {
    test.stem = given / fs::canonical(given, error).filename();
  } else {
    test.stem = fs::path(given).replace_extension();
  }
  test.name = test.stem.string();
  return test;
}

fs::path ScriptOf(const ProgramTest& test) {
  return With(test.stem, kScript);
}

fs::path OutputOf(const ProgramTest& test) {
  return With(test.stem, kOutput);
}

fs::path ArgumentsOf(const ProgramTest& test) {
  return With(test.stem, kArguments);
}

std::variant<TestContent, std::string> ReadTest(const ProgramTest& test) {
  TestContent content;
  std::array<std::optional<std::string>, 3> texts;
  const std::array<fs::path, 3> files = {With(test.stem, test.isOneFile ? kBoth : kScript), OutputOf(test),
                                         ArgumentsOf(test)};
  for (std::size_t i = 0; i < files.size(); ++i) {
    auto read = ReadIfThere(files[i]);
    if (std::string* problem = std::get_if<std::string>(&read)) return std::move(*problem);
    texts[i] = std::get<std::optional<std::string>>(std::move(read));
  }
  content.script = texts[0].value_or("");
  content.expected = std::move(texts[1]);
  if (test.isOneFile) {
    const std::string both = "\n" + content.script;
    const std::size_t divider = both.find("\n" + std::string(kDivider));
    content.expected.reset();
    if (divider != std::string::npos) {
      content.expected = content.script.substr(divider + kDivider.size());
      content.script.resize(divider);
    }
  }
  std::istringstream lines(texts[2].value_or(""));
  for (std::string line; std::getline(lines, line);) content.arguments.push_back(line);
  return content;
}

std::string WriteArguments(const ProgramTest& test, const std::vector<std::string>& arguments) {
  if (arguments.empty()) {
    std::error_code error;
    fs::remove(ArgumentsOf(test), error);
    return error ? ArgumentsOf(test).string() + ": não foi possível apagar: " + SystemReason(error.value())
                 : std::string();
  }
  std::string lines;
  for (const std::string& argument : arguments) lines += argument + "\n";
  return Written(ArgumentsOf(test), lines);
}

std::string WriteExpected(const ProgramTest& test, const std::string& script, const std::string& output) {
  std::string bytes = output;
  if (test.isOneFile) {
    bytes = script;
    if (!bytes.empty() && bytes.back() != '\n') bytes += '\n';
    bytes.append(kDivider).append(output);
  }
  return Written(With(test.stem, test.isOneFile ? kBoth : kOutput), bytes);
}

}  // namespace tessera
