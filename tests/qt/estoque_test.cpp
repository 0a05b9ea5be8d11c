// The stock list of the examples on real windows: its script becomes pointer and key events, and what it says
// is what it says on the console host.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/qt_person.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

const std::filesystem::path kSource = TESSERA_SOURCE_DIR;

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(EstoqueOnWindows, SaysWhatItSaysOnTheConsole) {
  const std::filesystem::path folder = kSource / "examples" / "Estoque";
  const std::filesystem::path expected = kSource / "tests" / "examples";
  QtHost qt;
  ScriptedDispatch dispatch(qt, Content(expected / "Estoque.in"));
  RecordedBoxes boxes;
  const Host host = qt.host();
  HostedProgram program({boxes, dispatch, host.clock, host.random, host.files}, qt);
  dispatch.person.windows = &program.janela.windows();
  program.run.ProgramFolderText = FromUtf8Lossy(folder.string()) + "\\";
  program.run.paths = PathMapping(program.run.host.files, folder, folder / "dados");

  EXPECT_EQ(program.Run(Content(folder / "Estoque.tsc")), 0);
  std::string said;
  for (const Box& box : boxes.boxes) {
    EXPECT_EQ(box.icon, BoxIcon::Information);
    said += "[info] " + ToUtf8(box.text) + "\n";
  }
  EXPECT_EQ(said, Content(expected / "Estoque.err"));
}

}  // namespace tessera::test
