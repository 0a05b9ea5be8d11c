#include "runtime/console_start.h"

#include <unistd.h>

#include <iostream>
#include <optional>

#include "console/console_host.h"
#include "runtime/program_run.h"

namespace tessera {

int RunOnConsole(const ProgramStart& start, bool answerCancel) {
  std::ios::sync_with_stdio(false);
  ConsoleStreams streams{.in = std::cin, .out = std::cout, .err = std::cerr};
  if (isatty(STDIN_FILENO) != 0) streams.terminal = STDIN_FILENO;
  ConsoleHost host(streams, {.programTitle = start.program.name, .answerCancel = answerCancel});
  const int status = RunProgram(start, UserServices(host.host(), &host));
  std::cout.flush();
  return status;
}

}  // namespace tessera
