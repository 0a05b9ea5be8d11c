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
    const ProcessResult result = WithoutDisplay({TESSERA_RUNTIME, "--entrega", file, "/", ""}, "lixo");
    EXPECT_EQ(result.status, 1) << file;
    EXPECT_NE(result.err.find("não tem um programa dentro"), std::string::npos) << result.err;
  }
}

TEST_F(Runtime, TellsADamagedPackage) {
  const std::string whole = ReadBytes(Build("jogo", "Escreva \"" + std::string(200, 'x') + "\""));
  const std::size_t package = whole.find(kNameEnd.text()) + kNameEnd.text().size();
  std::string hugeCount = whole;
  hugeCount[package + 3] = '\x7F';
  std::string key11 = whole;
  key11[package + 4] = '\xF4';
  std::string noSeparator = whole;
  noSeparator.replace(noSeparator.rfind(kSourceEnd), kSourceEnd.size(), "...");
  struct Case {
    const char* what;
    std::string bytes;
    const char* says;
  };
  const Case cases[] = {
      {"no end marker", whole.substr(0, whole.size() - 2), "incompleto"},
      {"cut package", whole.substr(0, package + 50), "incompleto"},
      {"no separator", noSeparator, "cortado"},
      {"huge count", hugeCount, "danificado"},
      {"key number above 10", key11, "danificado"},
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

}  // namespace
}  // namespace tessera
