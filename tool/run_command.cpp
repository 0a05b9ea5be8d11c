// `tessera run`: a program from its sources, with windows or on the terminal.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "platform/system_reason.h"
#include "runtime/console_start.h"
#include "runtime/display_names.h"
#include "runtime/given_devices.h"
#include "runtime/handover.h"
#include "runtime/own_folder.h"
#include "runtime/program_start.h"
#include "tool/finding_printer.h"
#include "tool/program_files.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

// What stands for a device lies where the tool was called.
std::string AbsolutePath(const std::string& path) {
  std::error_code unreadable;
  return path.empty() ? path : std::filesystem::absolute(path, unreadable).string();
}

constexpr std::string_view kStandardInput = "-";

// Makes the file the process's standard input, which the runtime takes over.
bool ReadFrom(const std::string& file) {
  const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (opened < 0) return false;
  const bool done = dup2(opened, STDIN_FILENO) >= 0;
  close(opened);
  return done;
}

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
  // The program runs whatever is found: the language decides what it takes.
  if (call.check && ErrorsAreRead()) {
    FindingPrinter(program, std::cerr, ErrorsAreColoured())
        .Print(check::Check(program.program.EditorText), FindingFormat::Person);
  }
  const std::string problem = ProblemOfDevices(call.microphone, call.camera);
  if (!problem.empty()) {
    PrintError(problem);
    return kWrongCall;
  }
  const ProgramStart start{.program = std::move(program.program),
                           .folder = std::move(program.folder),
                           .commandLine = CommandLineOf(call.arguments),
                           .printer = call.printer,
                           .microphone = AbsolutePath(call.microphone),
                           .camera = AbsolutePath(call.camera),
                           .plain = call.plain,
                           .scripted = !call.script.empty(),
                           .tellsHidden = call.failures,
                           .answerCancel = call.answerCancel,
                           .recorded = AbsolutePath(call.record),
                           .files = std::move(program.files)};
  if (start.scripted && call.script != kStandardInput && !ReadFrom(call.script)) {
    PrintError(call.script + ": o roteiro não pode ser lido: " + SystemReason(errno));
    return kWrongCall;
  }
  if (!call.console) {
    if (start.scripted || !start.recorded.empty() || !NamedDisplays().empty()) return RunWithWindows(start);
    PrintRemark("nenhuma tela ao alcance; o programa roda no terminal");
  }
  return RunOnConsole(start);
}

}  // namespace tessera
