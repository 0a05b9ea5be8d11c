// The built runtime as a process: what stands in its file, and what it does with and without a program.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "image/image_layout.h"
#include "support/process.h"

namespace tessera {
namespace {

class Runtime : public testing::Test {
 protected:
  std::string Build(const std::string& name, const std::string& source) {
    const ProcessResult built =
        RunProcess({.words = {TESSERA_TOOL, "build", folder_.Write(name + ".tsc", source)}});
    EXPECT_EQ(built.status, 0) << built.err;
    return folder_ / name;
  }
  ProcessResult WithoutDisplay(std::vector<std::string> words, const std::string& input = "") {
    return RunProcess({.words = std::move(words),
                       .input = input,
                       .environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}});
  }
  ProcessResult Offscreen(std::vector<std::string> words) {
    return RunProcess(
        {.words = std::move(words),
         .environment = {"QT_QPA_PLATFORM=offscreen", "XDG_RUNTIME_DIR=" + folder_.path().string()}});
  }

  TemporaryFolder folder_;
};

TEST_F(Runtime, HoldsNoMarkerInPlainText) {
  const std::string bytes = ReadBytes(TESSERA_RUNTIME);
  ASSERT_GT(bytes.size(), 100000u);
  EXPECT_NE(bytes.find("Compilador do Tessera"), std::string::npos) << "plain texts are found in it";
  for (const std::string& marker : {kOpeningMarker.text(), kNameEnd.text(), kClosingMarker.text()}) {
    EXPECT_EQ(bytes.find(marker), std::string::npos) << marker;
  }
}

TEST_F(Runtime, APackedProgramRunsFromWhereItLies) {
  const std::string built = Build("jogo", "Escreva PastaPrograma\nEscreva LinhaComando\nMensagem \"oi\"");
  std::filesystem::create_directory(folder_ / "outra");
  std::filesystem::rename(built, folder_ / "outra/outronome");
  std::filesystem::remove(folder_ / "jogo.tsc");
  const ProcessResult result = WithoutDisplay({folder_ / "outra/outronome", "um", "dois três"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, std::filesystem::canonical(folder_ / "outra").string() + "\num \"dois três\"\n");
  EXPECT_NE(result.err.find("nenhuma tela ao alcance"), std::string::npos) << result.err;
  EXPECT_NE(result.err.find("[info] oi\n"), std::string::npos) << result.err;
}

TEST_F(Runtime, AProgramInWindowsEndsWithItsMainWindow) {
  const std::string source = "Escreva \"oi\"\nAguarde 1\nFimJanela";
  const ProcessResult packed = Offscreen({Build("jogo", source)});
  EXPECT_EQ(packed.status, 0) << packed.err;
  EXPECT_EQ(packed.out, "") << "prints go into the window";
  EXPECT_EQ(packed.err, "") << "the window system has nothing to say to a person";
  const ProcessResult run = Offscreen({TESSERA_TOOL, "run", folder_ / "jogo.tsc"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "");
}

// Whoever writes a program learns where it failed; a finished program keeps silent.
TEST_F(Runtime, ARunThatIsAbandonedInWindowsTellsFileAndLineToItsWriter) {
  const std::string source =
      "Escreva 1\nPosicione 1\nFimPrograma\nSub Temporizador_Fim(2)\nFimJanela\nFimSub";
  const ProcessResult packed = Offscreen({Build("jogo", source)});
  EXPECT_EQ(packed.err, "");
  const std::string file = folder_ / "jogo.tsc";
  EXPECT_EQ(Offscreen({TESSERA_TOOL, "run", file}).err, "[falha] " + file + ":2: Tipos incompatíveis\n");
}

// The started program writes down how wide its window is.
TEST_F(Runtime, AProgramStartedByAnotherTakesTheFormThatItIsAskedFor) {
  Build("filho",
        "Aguarde 50\nAbreArquivo S, \"largura.txt\", \"TextoGravacao\"\n"
        "GravaArquivo S, LarguraJanela()\nFechaArquivo S\nFimJanela");
  const auto columns = [this](const std::string& form) {
    const std::string file = folder_ / "largura.txt";
    std::filesystem::remove(file);
    const std::string starter =
        Build("mae_" + form, "Var n Inteiro\nn = Chame(\"filho\", \"" + form + "\")\nAguarde 1\nFimJanela");
    EXPECT_EQ(Offscreen({starter}).status, 0);
    for (int i = 0; i < 500 && !ReadBytes(file).ends_with('\n'); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return std::atoi(ReadBytes(file).c_str());
  };
  EXPECT_EQ(columns("NORMAL"), 80);
  EXPECT_EQ(columns("OCULTO"), 80);
  EXPECT_GT(columns("MAXIMIZADO"), 90);
}

TEST_F(Runtime, WithoutAProgramItSaysSo) {
  const ProcessResult bare = WithoutDisplay({TESSERA_RUNTIME});
  EXPECT_EQ(bare.status, 1);
  EXPECT_EQ(bare.out, "");
  EXPECT_NE(bare.err.find("não tem um programa dentro"), std::string::npos) << bare.err;
}

TEST_F(Runtime, IgnoresAHandoverThatCannotBeRead) {
  for (const char* file : {"0", "99", "x", "", "-1"}) {
    const ProcessResult result = WithoutDisplay({TESSERA_RUNTIME, "--entrega", file, "/", "", ""}, "lixo");
    EXPECT_EQ(result.status, 1) << file;
    EXPECT_NE(result.err.find("não tem um programa dentro"), std::string::npos) << result.err;
  }
}

// A copy that lost its end or a bit never runs: not as an empty runtime, nor as another program.
TEST_F(Runtime, TellsADamagedCopy) {
  const std::string whole = ReadBytes(Build("jogo", "Escreva \"" + std::string(200, 'x') + "\""));
  const std::size_t image = whole.find(kOpeningMarker.text());
  ASSERT_EQ(image, ReadBytes(TESSERA_RUNTIME).size());
  std::string flipped = whole;
  flipped[image + 3] = static_cast<char>(flipped[image + 3] ^ 4);
  std::string otherSource = whole;
  otherSource[image + 40] = static_cast<char>(otherSource[image + 40] ^ 1);
  std::string otherText = whole;
  otherText[whole.find("Compilador do Tessera")] = 'c';
  struct Case {
    const char* what;
    std::string bytes;
    const char* says;
  };
  const Case cases[] = {
      {"end", whole.substr(0, whole.size() - 1), "cortado"},
      {"within the package", whole.substr(0, image + 50), "cortado"},
      {"no package", whole.substr(0, image), "cortado"},
      {"within the runtime's tables", whole.substr(0, image - 100), "cortado"},
      {"marker", flipped, "danificado"},
      {"source", otherSource, "danificado"},
      {"texts of the runtime", otherText, "danificado"},
  };
  for (const Case& c : cases) {
    const std::string file = folder_.Write("damaged", c.bytes);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    const ProcessResult result = WithoutDisplay({file});
    EXPECT_EQ(result.status, 1) << c.what;
    EXPECT_EQ(result.out, "") << c.what;
    EXPECT_NE(result.err.find(c.says), std::string::npos) << c.what << ": " << result.err;
  }
}

// Tools that take from an executable what it does not need, or put something to it, leave the program whole.
TEST_F(Runtime, AToolOfPackagesLeavesTheProgramWhole) {
  const std::vector<std::vector<std::string>> tools = {
      {"/usr/bin/strip"},
      {"/usr/bin/strip", "--strip-debug"},
      {"/usr/bin/strip", "--strip-unneeded", "--remove-section=.comment", "--remove-section=.note"},
      {"/usr/bin/objcopy", "--remove-section=.gnu.version_d"},
  };
  for (std::vector<std::string> call : tools) {
    const std::string file = Build("jogo", "Escreva 1");
    call.push_back(file);
    for (int times = 0; times < 2; ++times) {
      ASSERT_EQ(RunProcess({.words = call}).status, 0) << call[0];
      const ProcessResult result = WithoutDisplay({file});
      EXPECT_EQ(result.out, "1\n") << call[0] << " " << result.err;
    }
  }
  const std::string file = Build("jogo", "Escreva 1");
  ASSERT_EQ(RunProcess({.words = {"/usr/bin/objcopy", "--remove-section=.tessera", file}}).status, 0);
  const ProcessResult taken = WithoutDisplay({file});
  EXPECT_EQ(taken.status, 1);
  EXPECT_NE(taken.err.find("falta o seu fim"), std::string::npos) << taken.err;
}

// Older copies, which have no seal, tell what their package tells.
TEST_F(Runtime, TellsADamagedPackageWithoutASeal) {
  const std::string sealed = ReadBytes(Build("jogo", "Escreva \"" + std::string(200, 'x') + "\""));
  const std::size_t begin = sealed.find(kOpeningMarker.text());
  const std::string closing = kClosingMarker.text() + "JOGO";
  const std::string whole =
      ReadBytes(TESSERA_RUNTIME) + sealed.substr(begin, sealed.find(closing) + closing.size() - begin);
  const std::size_t package = whole.find(kNameEnd.text()) + kNameEnd.text().size();
  std::string hugeCount = whole;
  hugeCount[package + 3] = '\x7F';
  const auto run = [&](const std::string& bytes) {
    const std::string file = folder_.Write("older", bytes);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return WithoutDisplay({file});
  };
  EXPECT_EQ(run(whole).out, std::string(200, 'x') + "\n");
  EXPECT_NE(run(whole.substr(0, whole.size() - 2)).err.find("incompleto"), std::string::npos);
  EXPECT_NE(run(hugeCount).err.find("danificado"), std::string::npos);
}

TEST_F(Runtime, ADisplayThatRefusesTheStartLeavesTheTerminal) {
  const std::string built = Build("jogo", "Escreva LinhaComando");
  for (const std::string platform : {"QT_QPA_PLATFORM=", "QT_QPA_PLATFORM=nenhuma", "QT_QPA_PLATFORM=xcb"}) {
    const auto run = [&](std::vector<std::string> words) {
      return RunProcess(
          {.words = std::move(words), .environment = {"DISPLAY=:987", "WAYLAND_DISPLAY", platform}});
    };
    const ProcessResult packed = run({built, "um"});
    EXPECT_EQ(packed.status, 0) << platform << packed.err;
    EXPECT_EQ(packed.out, "um\n") << platform;
    const ProcessResult left = run({TESSERA_TOOL, "run", folder_ / "jogo.tsc", "--", "dois"});
    EXPECT_EQ(left.status, 0) << platform << left.err;
    EXPECT_EQ(left.out, "dois\n") << platform;
    EXPECT_EQ(run({TESSERA_RUNTIME}).status, 1) << platform;
  }
}

// The first file of a process without standard streams must not get their numbers.
TEST_F(Runtime, ClosedStandardStreamsTakeNoFile) {
  const std::string program = folder_.Write(
      "p.tsc",
      "BD A, \"dados\"\nT, String, 5\nFimBD\nAbreBD A\nA.T = \"um\";AdicionaRegistro A\nA.T = "
      "\"\";LeRegistro A, 0\nEscreva \"na tela\"\n"
      "AbreBD Nada\nAbreArquivo S, \"lido.txt\", \"TextoGravacao\"\nGravaArquivo S, A.T\nFechaArquivo S\n");
  const std::string built = Build("p", ReadBytes(program));
  for (const std::string& words :
       {std::string(TESSERA_TOOL) + " run --console " + program, built + " ", "env -u DISPLAY " + built}) {
    for (const char* closed : {"0<&- 1>&- 2>&-", "1>&-", "0<&- 2>&-", "2>&-"}) {
      std::filesystem::remove_all(folder_ / "dados");
      const ProcessResult result =
          RunProcess({.words = {"/bin/sh", "-c", words + " " + closed},
                      .environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}});
      EXPECT_EQ(ReadBytes(folder_ / "lido.txt"), "um\r\n") << words << closed << result.err;
      EXPECT_EQ(std::filesystem::file_size(folder_ / "dados/A.Tsa"), 20009u) << words << closed;
      std::filesystem::remove(folder_ / "lido.txt");
    }
  }
}

}  // namespace
}  // namespace tessera
