// A program on the console host whose window can be looked at.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string_view>

#include "console/console_host.h"
#include "platform/failure.h"
#include "support/core_program.h"
#include "support/hosted_program.h"

namespace tessera::test {

// Its windows stand on the stage, where there is one.
struct ConsoleProgram {
  explicit ConsoleProgram(Stage* shownOn = nullptr) : stage(shownOn) {}

  Stage* stage;
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host{{in, out, err}, {.programTitle = "TESTE", .stage = stage}};
  HostedProgram program{host.host(), host};
};

class ConsoleWindowTest : public testing::Test, protected ConsoleProgram {
 protected:
  Form& Window() { return program.janela.windows().MainWindow(); }
  WindowModel& Windows() { return program.janela.windows(); }
  std::string Printed() const { return out.str(); }

  // Runs a program to its end, and leaves the window open.
  void Draw(std::string_view source) { ASSERT_EQ(program.Start(source), RunOutcome::Ended) << err.str(); }
  Colour At(int x, int y) { return Window().Point({x, y}); }
};

}  // namespace tessera::test
