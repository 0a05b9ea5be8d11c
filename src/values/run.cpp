#include "values/run.h"

#include "text/one_based.h"

namespace tessera {

Run::Run(const Host& runHost, const StackLimit& stackLimit)
    : host(runHost),
      stack(stackLimit),
      paths(host.files),
      variables([this](std::string_view text) { ShowCritical(*this, text); }) {}

void InstallProgram(Run& run, PreparedProgram program) {
  run.program = std::move(program);
  run.programFunctions.Fill(run.program.routines.FunctionNames);
}

std::string SourcePositionText(const Run& run) {
  return "Editor: " + std::to_string(run.sourcePosition.editor) +
         " Linha: " + std::to_string(run.sourcePosition.line);
}

std::string ProgramTitle(const Run& run) {
  const std::string& name = run.ProgramFileName;
  return name.size() < 4 ? name : name.substr(0, name.size() - 4);
}

void ShowCritical(Run& run, std::string_view text) {
  run.host.dialogs.ShowBox(
      {.text = std::string(text), .title = ProgramTitle(run), .icon = BoxIcon::Critical});
}

}  // namespace tessera
