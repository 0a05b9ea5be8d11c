#include "runtime/console_start.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>
#include <optional>
#include <utility>

#include "console/console_host.h"
#include "console/recording.h"
#include "platform/descriptor.h"
#include "platform/system_reason.h"
#include "platform/termination.h"
#include "runtime/own_folder.h"
#include "runtime/program_run.h"

namespace tessera {

namespace {

constexpr int kLostOutput = 1;

FailureListener TellerOf(ConsoleHost& host) {
  return [&host](std::string_view what, std::string_view position, std::string_view description) {
    host.TellFailure(what, position, description);
  };
}

int RunOnStreams(const ProgramStart& start, Stage* stage, Recording* recording) {
  termination::Install(true);
  std::ios::sync_with_stdio(false);
  const ConsoleStreams streams{.in = std::cin,
                               .out = std::cout,
                               .err = std::cerr,
                               .descriptor = STDIN_FILENO,
                               .isTerminal = stage == nullptr && isatty(STDIN_FILENO) != 0};
  reports::PaperPart paper(reports::PainterOfPart(PartFolders()));
  ConsoleOptions options{.programTitle = start.program.name,
                         .answerCancel = start.answerCancel,
                         .stage = stage,
                         .recording = recording,
                         .paper = &paper,
                         .findCodec = CodecOfPart(PartFolders())};
  if (isatty(STDERR_FILENO) != 0)
    options.placeOf = [&start](std::string_view text) { return FilePlace(start.files, text); };
  ConsoleHost host(streams, std::move(options));
  const int status = RunProgram(start, host.host(), host,
                                {.reports = host, .media = host, .hiddenFailures = TellerOf(host)});
  std::cout.flush();
  if (std::cout) return status;
  std::cerr << "tessera: a saída do programa não pôde ser gravada\n";
  return kLostOutput;
}

}  // namespace

int RunOnConsole(const ProgramStart& start) {
  return RunOnStreams(start, nullptr, nullptr);
}

int RunOnStage(const ProgramStart& start, Stage& stage) {
  return RunOnStreams(start, &stage, nullptr);
}

int RunRecorded(const ProgramStart& start, Stage& stage, ScriptAuthor& author) {
  Descriptor file(open(start.recorded.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file.IsOpen()) {
    std::cerr << "tessera: " << start.recorded << ": o roteiro não pode ser gravado: " << SystemReason(errno)
              << '\n';
    return kLostOutput;
  }
  Recording recording(author, std::move(file));
  const int status = RunOnStreams(start, &stage, &recording);
  if (recording.IsWhole()) return status;
  std::cerr << "tessera: " << start.recorded << ": o roteiro não pôde ser gravado até o fim\n";
  return kLostOutput;
}

}  // namespace tessera
