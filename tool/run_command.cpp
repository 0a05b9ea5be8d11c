// `tessera run`: a program from its sources, with windows or on the terminal.
#include "runtime/console_start.h"
#include "runtime/display_probe.h"
#include "runtime/handover.h"
#include "runtime/own_folder.h"
#include "runtime/program_start.h"
#include "tool/program_files.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

// The tool itself links no window toolkit, so that the terminal stays quick: the runtime shows the windows.
int RunWithWindows(const ProgramStart& start) {
  const std::string runtime = SiblingRuntime().string();
  const std::string reason = BecomeRuntime(runtime, start);
  PrintError(runtime + ": não foi possível iniciar o executor: " + reason +
             "; compile o sistema (./run) ou use --console");
  return kWrongCall;
}

}  // namespace

int RunSubcommand(const RunCall& call) {
  auto loaded = LoadProgram(call.program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) {
    PrintError(problem->message);
    return kWrongCall;
  }
  LoadedProgram& program = std::get<LoadedProgram>(loaded);
  const ProgramStart start{std::move(program.program), std::move(program.folder),
                           CommandLineOf(call.arguments)};
  if (!call.console) {
    if (DisplayIsReachable()) return RunWithWindows(start);
    PrintRemark("nenhuma tela pode ser alcançada; o programa roda no terminal");
  }
  return RunOnConsole(start, call.answerCancel);
}

}  // namespace tessera
