// The register of customers among the examples, as a finished program on a real X server: a person fills the
// form by keys alone, changes and deletes by the pointer, and the record file tells what came of it.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "support/process.h"
#include "support/virtual_screen.h"

namespace tessera {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{10000};
// Behind a written record the list is filled anew, and behind a click the form; neither can be asked for.
constexpr milliseconds kSettling{1000};

// Places on the window, in pixels.
struct Spot {
  int x;
  int y;
};
constexpr Spot kLimite = {424, 94};
constexpr Spot kGravar = {576, 71};
constexpr Spot kExcluir = {576, 113};
constexpr Spot kPrimeiraLinha = {100, 318};

class Register : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(std::filesystem::path(TESSERA_EXAMPLES) / "Clientes", folder / "Clientes",
                          std::filesystem::copy_options::recursive);
    const ProcessResult built =
        RunProcess({.words = {TESSERA_TOOL, "build", folder / "Clientes", "-o", folder / "clientes"}});
    ASSERT_EQ(built.status, 0) << built.err;
    program = std::make_unique<RunningProcess>(
        ProcessCall{.words = {folder / "clientes"}, .environment = screen.Environment()});
    window = screen.WindowNamed("Cadastro de clientes");
    ASSERT_NE(window, 0U) << program->Err();
  }

  void Type(const std::string& text) { screen.Do({"type", text}); }
  void Tab() { screen.Do({"key", "Tab"}); }
  void Click(Spot spot) {
    screen.PointAt(window, spot.x, spot.y);
    screen.Do({"click", "1"});
  }

  // The first customer of the list comes into the form.
  void ShowFirst() {
    std::this_thread::sleep_for(kSettling);
    Click(kPrimeiraLinha);
    std::this_thread::sleep_for(kSettling);
  }

  // Waits until the file holds just these records, a line each.
  void ExpectRecords(const std::string& wanted) {
    std::string records;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    do {
      std::this_thread::sleep_for(milliseconds(20));
      std::filesystem::remove(folder / "x.csv");
      RunProcess({.words = {TESSERA_TOOL, "bd", "export", folder / "dados/Clientes.Tsa", "--csv",
                            folder / "x.csv"}});
      const std::string all = ReadBytes(folder / "x.csv");
      records = all.substr(std::min(all.find('\n') + 1, all.size()));
      std::erase(records, '\r');
    } while (records != wanted && std::chrono::steady_clock::now() < end);
    EXPECT_EQ(records, wanted) << program->Err();
  }

  TemporaryFolder folder;
  VirtualScreen screen;
  std::unique_ptr<RunningProcess> program;
  std::uint32_t window = 0;
};

}  // namespace

TEST_F(Register, KeepsWhatAPersonTypesChangesAndDeletes) {
  Type("Ana Souza");
  Tab();
  Type("11144477735");
  Tab();
  Type("15031990");
  Tab();
  Type("Rec");
  Tab();
  Type("1500,5");
  Click(kGravar);
  ExpectRecords("Ana Souza;111.444.777-35;15/03/1990;Recife;1;1;1500,5;\n");

  ShowFirst();
  Click(kLimite);
  Type("99,9");
  Click(kGravar);
  ExpectRecords("Ana Souza;111.444.777-35;15/03/1990;Recife;1;1;99,9;\n");

  ShowFirst();
  Click(kExcluir);
  screen.WindowNamed("CLIENTES", window);
  screen.Do({"key", "alt+s"});
  ExpectRecords("");
}

}  // namespace tessera
