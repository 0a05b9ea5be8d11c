#include "system/icon_commands.h"

#include <string>
#include <variant>

#include "commands/arguments.h"
#include "commands/resolve_file.h"
#include "platform/failure.h"
#include "system/icon_changer.h"
#include "text/literal.h"

namespace tessera {

namespace {

// KEPT: these texts are in English.
std::string ProblemText(IconProblem problem, const std::string& icon, const std::string& executable) {
  const auto cannotOpen = [](const std::string& file) {
    return "Failed to open " + file + ". Make sure file is not in use by another program.";
  };
  switch (problem) {
    case IconProblem::OpenIcon:
      return cannotOpen(icon);
    case IconProblem::OpenExecutable:
      return cannotOpen(executable);
    case IconProblem::InvalidIcon:
      return icon + " is not a valid icon resource file.";
    case IconProblem::NotExecutable:
      return executable + " is not a valid Win32 executable.";
    case IconProblem::NoTree:
      return executable + " does not contain a valid resource tree.  File may be corrupt.";
    case IconProblem::NoDirectories:
      break;
  }
  return "Unable to modify directories in target executable.  File may not contain any icon resources.";
}

// A file that is not there keeps the name that the program gave it.
std::string FileOf(const Run& run, const std::string& name) {
  const std::string resolved = ResolveFile(run, name);
  return resolved.empty() ? name : resolved;
}

Value MudaIcone(const WordCall& call) {
  const Arguments arguments(call);
  Run& run = call.run;
  const std::string executable = FileOf(run, arguments.Text("executável"));
  const std::string icon = FileOf(run, arguments.Text("ícone"));
  run.fileNumbers.FlushAll();
  std::string problem;
  const auto failure = Guard([&] {
    const auto changed =
        IconChanger(run.host.files).ReplaceIcon(run.paths.SystemPath(icon), run.paths.SystemPath(executable));
    if (const IconProblem* found = std::get_if<IconProblem>(&changed)) {
      problem = ProblemText(*found, icon, executable);
    }
  });
  if (failure) problem = failure->description();
  if (problem.empty()) return Quote("Ícone alterado com sucesso!"_w);
  ShowCritical(run, problem);
  return Quote("Ocorreu um erro ao tentar mudar o ícone!"_w);
}

constexpr PlainRow kRows[] = {{"MudaIcone", MudaIcone}};

}  // namespace

void BindIconCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
