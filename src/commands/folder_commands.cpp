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
Value ProcureArquivo(const WordCall& call) {
  const Arguments arguments(call);
  std::string found;
  Guard([&] {
    std::string folder = arguments.Number("pasta").ToText();
    const std::string name = arguments.Number("nome").ToText();
    if (folder.empty() || name.empty()) return;
    const auto path = FindInTree(call.run.host.files, call.run.paths.SystemPath(folder), name);
    if (!path) return;
    if (!IsPathSeparator(folder.back())) folder += '\\';
    found = folder + *path;
  });
  return Quote(found);
}

Value RemoveArquivo(const WordCall& call) {
  const std::string path = ResolveFile(call.run, Arguments(call).Text("arquivo"));
  // A file that stays is no failure; the path tells what was meant.
  Guard([&] { RemoveFile(call.run.host.files, call.run.paths.SystemPath(path)); });
  return Quote(path);
}

// Lines that the program has written so far are in the file that is copied, packed or read by another
// program.
Value Copia(const WordCall& call) {
  const Arguments arguments(call);
  call.run.fileNumbers.FlushAll();
  const auto failure = Guard([&] {
    const std::string source = call.run.paths.SystemPath(arguments.Number("origem").ToText());
    CopyFile(call.run.host.files, source, call.run.paths.SystemPath(arguments.Number("destino").ToText()));
  });
  return failure ? Quote("Erro " + std::to_string(failure->number())) : Value();
}

// Does something with the folder of the only argument; a failure answers with its description.
template <void (*Change)(FileStore& files, const std::string& path)>
Value OnFolder(const WordCall& call) {
  const Arguments arguments(call);
  const auto failure =
      Guard([&] { Change(call.run.host.files, call.run.paths.SystemPath(arguments.Text("pasta"))); });
  return failure ? Quote(failure->description()) : Value();
}

// OPEN: the 301st file is refused with a box, and the package stays as it is.
Value InsereArquivo(const WordCall& call) {
  const Arguments arguments(call);
  const std::string name = arguments.Text("nome");
  const std::string source = call.run.paths.SystemPath(ResolveFile(call.run, arguments.Text("origem")));
  const std::string package = arguments.Text("pacote");
  call.run.fileNumbers.FlushAll();
  if (!InsertIntoPackage(call.run.host.files, name, source, call.run.paths.SystemPath(package))) {
    ShowCritical(call.run, std::string("InsereArquivo - Pacote cheio, cabem 300 arquivos: "_w)
                               .append(package)
                               .append(kCrLf)
                               .append(SourcePositionText(call.run)));
  }
  return {};
}

// OPEN: a missing package has no file, and is not made. What was opened is closed again in every case.
Value ExtraiArquivo(const WordCall& call) {
  const Arguments arguments(call);
  const std::string name = arguments.Text("nome");
  const std::string target = call.run.paths.SystemPath(arguments.Text("destino"));
  if (!ExtractFromPackage(call.run.host.files, name, target,
                          call.run.paths.SystemPath(arguments.Text("pacote")))) {
    ShowCritical(call.run, "Arquivo não encontrado!"_w);
  }
  return {};
}

constexpr PlainRow kRows[] = {
    {"ProcureArquivo", ProcureArquivo},
    {"RemoveArquivo", RemoveArquivo},
    {"Copia", Copia},
    {"CriaPasta", OnFolder<MakeFolder>},
    {"RemovePasta", OnFolder<RemoveFolder>},
    {"InsereArquivo", InsereArquivo},
    {"ExtraiArquivo", ExtraiArquivo},
};

}  // namespace

void BindFolderCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
