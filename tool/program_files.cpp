#include "tool/program_files.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <optional>
#include <vector>

#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "text/code_page.h"
#include "text/one_based.h"
#include "tool/source_text.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".tsc";
constexpr std::string_view kMainEditorStem = "Principal";
constexpr std::size_t kMostFurtherEditors = kEditors - 1;

std::string Folded(std::string_view utf8) {
  return Upper(FromUtf8Lossy(utf8));
}

bool IsProgramFile(const fs::path& path) {
  return Folded(path.extension().string()) == Folded(kExtension);
}

// The chosen files, editor 0 first.
using Choice = std::variant<std::vector<fs::path>, LoadProblem>;

std::string Listed(const std::vector<fs::path>& files) {
  std::string list;
  for (const fs::path& file : files) list += (list.empty() ? "" : ", ") + file.filename().string();
  return list;
}

// The file with that stem: spelled just so, or else blind to case.
std::vector<fs::path>::iterator FindStem(std::vector<fs::path>& files, const std::string& stem) {
  const auto exact =
      std::find_if(files.begin(), files.end(), [&](const fs::path& file) { return file.stem() == stem; });
  if (exact != files.end()) return exact;
  return std::find_if(files.begin(), files.end(),
                      [&](const fs::path& file) { return Folded(file.stem().string()) == Folded(stem); });
}

Choice ChooseInFolder(const fs::path& folder, const std::string& folderName) {
  std::error_code error;
  std::vector<fs::path> files;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (IsProgramFile(entry->path()) && entry->is_regular_file(error)) files.push_back(entry->path());
  }
  if (error)
    return LoadProblem{folder.string() + ": não foi possível ler a pasta: " + SystemReason(error.value())};
  std::sort(files.begin(), files.end());

  if (files.empty()) return LoadProblem{folder.string() + ": a pasta não tem nenhum arquivo .tsc"};
  auto main = FindStem(files, folderName);
  if (main == files.end()) main = FindStem(files, std::string(kMainEditorStem));
  if (main == files.end() && files.size() == 1) main = files.begin();
  if (main == files.end()) {
    return LoadProblem{folder.string() + ": falta o editor principal: nem " + folderName + ".tsc nem " +
                       std::string(kMainEditorStem) + ".tsc está na pasta, que tem " + Listed(files)};
  }
  std::rotate(files.begin(), main, main + 1);
  if (files.size() - 1 > kMostFurtherEditors) {
    return LoadProblem{folder.string() + ": há " + std::to_string(files.size() - 1) +
                       " editores além do principal (" + files[0].filename().string() + "); o máximo é " +
                       std::to_string(kMostFurtherEditors) + ": " +
                       Listed(std::vector<fs::path>(files.begin() + 1, files.end()))};
  }
  return files;
}

std::variant<std::string, LoadProblem> ReadSource(const fs::path& file) {
  const auto read = ReadWholeFile(file.string());
  if (const SystemError* error = std::get_if<SystemError>(&read)) {
    return LoadProblem{file.string() + ": não foi possível ler o arquivo: " + SystemReason(error->number)};
  }
  auto text = SourceTextFromBytes(std::get<std::string>(read));
  if (const SourceProblem* problem = std::get_if<SourceProblem>(&text)) {
    return LoadProblem{file.string() + ":" + std::to_string(problem->line) + ":" +
                       std::to_string(problem->column) + ": " + problem->reason};
  }
  return std::get<std::string>(std::move(text));
}

// A name in the code page, or nothing where it has a character that the page lacks.
std::optional<std::string> NameInCodePage(const std::string& utf8) {
  auto converted = FromUtf8(utf8);
  if (std::holds_alternative<Utf8Problem>(converted)) return std::nullopt;
  return std::get<std::string>(std::move(converted));
}

LoadProblem UnfitName(const fs::path& path) {
  return {path.string() + ": o nome tem um caractere que não existe na página de código Windows-1252"};
}

}  // namespace

std::variant<LoadedProgram, LoadProblem> LoadProgram(const std::string& path) {
  std::error_code error;
  const fs::path given(path);
  const fs::file_status status = fs::status(given, error);
  if (!fs::exists(status)) return LoadProblem{path + ": programa não encontrado"};

  const fs::path whole = fs::canonical(given, error);
  if (error) return LoadProblem{path + ": " + SystemReason(error.value())};
  LoadedProgram loaded;
  Choice choice;
  if (fs::is_directory(status)) {
    loaded.stem = whole.filename().string();
    loaded.folder = whole;
    choice = ChooseInFolder(given, loaded.stem);
  } else if (fs::is_regular_file(status) && IsProgramFile(given)) {
    loaded.stem = given.stem().string();
    loaded.folder = fs::canonical(fs::absolute(given, error).parent_path(), error);
    choice = std::vector<fs::path>{given};
  } else {
    return LoadProblem{path + ": um programa é um arquivo .tsc ou uma pasta com arquivos .tsc"};
  }
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&choice)) return *problem;

  const std::optional<std::string> name = NameInCodePage(loaded.stem);
  if (!name) return UnfitName(given);
  loaded.program.name = Upper(*name);

  const auto& files = std::get<std::vector<fs::path>>(choice);
  for (std::size_t i = 0; i < files.size(); ++i) {
    auto source = ReadSource(files[i]);
    if (const LoadProblem* problem = std::get_if<LoadProblem>(&source)) return *problem;
    loaded.program.EditorText[i] = std::get<std::string>(std::move(source));
    loaded.files[i] = files[i].string();
    if (i == 0) continue;
    const std::optional<std::string> editorName = NameInCodePage(files[i].stem().string());
    if (!editorName) return UnfitName(files[i]);
    loaded.program.EditorName[i - 1] = *editorName;
  }
  return loaded;
}

}  // namespace tessera
