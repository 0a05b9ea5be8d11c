#include "runtime/console_start.h"

#include <unistd.h>

#include <iostream>
#include <optional>

#include "console/console_host.h"
#include "platform/termination.h"
#include "runtime/own_folder.h"
#include "runtime/program_run.h"

namespace tessera {

namespace {

int RunOnStreams(const ProgramStart& start, Stage* stage) {
  constexpr int kLostOutput = 1;
  termination::Install(true);
  std::ios::sync_with_stdio(false);
  const ConsoleStreams streams{.in = std::cin,
                               .out = std::cout,
                               .err = std::cerr,
                               .descriptor = STDIN_FILENO,
                               .isTerminal = stage == nullptr && isatty(STDIN_FILENO) != 0};
  reports::PaperPart paper(PartFolders());
  ConsoleOptions options{.programTitle = start.program.name,
                         .answerCancel = start.answerCancel,
                         .stage = stage,
                         .paper = &paper,
                         .findCodec = CodecOfPart(PartFolders())};
  if (isatty(STDERR_FILENO) != 0)
    options.placeOf = [&start](std::string_view text) { return FilePlace(start.files, text); };
  ConsoleHost host(streams, std::move(options));
  const int status = RunProgram(start, host.host(), host, {.reports = host, .media = host});
  std::cout.flush();
  if (std::cout) return status;
  std::cerr << "tessera: a saída do programa não pôde ser gravada\n";
  return kLostOutput;
}

}  // namespace

int RunOnConsole(const ProgramStart& start) {
  return RunOnStreams(start, nullptr);
}

int RunOnStage(const ProgramStart& start, Stage& stage) {
  return RunOnStreams(start, &stage);
}

}  // namespace tessera
