#include "commands/folder_commands.h"

#include "commands/arguments.h"
#include "commands/package_file.h"
#include "commands/resolve_file.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// OPEN: the answer begins with the start folder as the program wrote it, so that it reads as the other paths
// of the program do.
Value ProcureArquivo(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  std::string found;
  Guard([&] {
    std::string folder = arguments.Number(0).ToText();
    const std::string name = arguments.Number(1).ToText();
    if (folder.empty() || name.empty()) return;
    const auto path = FindInTree(run.host.files, run.paths.SystemPath(folder), name);
    if (!path) return;
    if (!IsPathSeparator(folder.back())) folder += '\\';
    found = folder + *path;
  });
  return Quote(found);
}

Value RemoveArquivo(Run& run, std::string_view text) {
  const std::string path = ResolveFile(run, Arguments(run, text, kTwoArguments).Text(0));
  // A file that stays is no failure; the path tells what was meant.
  Guard([&] { RemoveFile(run.host.files, run.paths.SystemPath(path)); });
  return Quote(path);
}

// Lines that the program has written so far are in the file that is copied, packed or read by another
// program.
Value Copia(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  run.fileNumbers.FlushAll();
  const auto failure = Guard([&] {
    const std::string source = run.paths.SystemPath(arguments.Number(0).ToText());
    CopyFile(run.host.files, source, run.paths.SystemPath(arguments.Number(1).ToText()));
  });
  return failure ? Quote("Erro " + std::to_string(failure->number())) : Value();
}

// Does something with the folder of the only argument; a failure answers with its description.
template <void (*Change)(FileStore& files, const std::string& path)>
Value OnFolder(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  const auto failure = Guard([&] { Change(run.host.files, run.paths.SystemPath(arguments.Text(0))); });
  return failure ? Quote(failure->description()) : Value();
}

// OPEN: the 301st file is refused with a box, and the package stays as it is.
Value InsereArquivo(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kThreeArguments);
  const std::string name = arguments.Text(0);
  const std::string source = run.paths.SystemPath(ResolveFile(run, arguments.Text(1)));
  const std::string package = arguments.Text(2);
  run.fileNumbers.FlushAll();
  if (!InsertIntoPackage(run.host.files, name, source, run.paths.SystemPath(package))) {
    ShowCritical(run, std::string("InsereArquivo - Pacote cheio, cabem 300 arquivos: "_w)
                          .append(package)
                          .append(kCrLf)
                          .append(SourcePositionText(run)));
  }
  return {};
}

// OPEN: a missing package has no file, and is not made. What was opened is closed again in every case.
Value ExtraiArquivo(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kThreeArguments);
  const std::string name = arguments.Text(0);
  const std::string target = run.paths.SystemPath(arguments.Text(1));
  if (!ExtractFromPackage(run.host.files, name, target, run.paths.SystemPath(arguments.Text(2)))) {
    ShowCritical(run, "Arquivo não encontrado!"_w);
  }
  return {};
}

constexpr CommandRow kRows[] = {
    {"PROCUREARQUIVO", ProcureArquivo},
    {"REMOVEARQUIVO", RemoveArquivo},
    {"COPIA", Copia},
    {"CRIAPASTA", OnFolder<MakeFolder>},
    {"REMOVEPASTA", OnFolder<RemoveFolder>},
    {"INSEREARQUIVO", InsereArquivo},
    {"EXTRAIARQUIVO", ExtraiArquivo},
};

}  // namespace

void AddFolderCommands(CommandTable& table, Run& run) {
  AddRows(table, run, kRows);
}

}  // namespace tessera
