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
  const auto without = [&](const std::string& text) {
    std::string other = whole;
    return other.replace(other.find(text), 1, "?");
  };
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
      {"texts of the runtime", without("a saída do programa"), "danificado"},
      {"texts of its windows", without("Compilador do Tessera"), "danificado"},
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
    const std::string file = Build("jogo", "Escreva 1\nFimJanela");
    call.push_back(file);
    for (int times = 0; times < 2; ++times) {
      ASSERT_EQ(RunProcess({.words = call}).status, 0) << call[0];
      const ProcessResult result = WithoutDisplay({file});
      EXPECT_EQ(result.out, "1\n") << call[0] << " " << result.err;
      const ProcessResult inWindows = Offscreen({file});
      EXPECT_EQ(inWindows.status, 0) << call[0] << " " << inWindows.err;
      EXPECT_EQ(inWindows.out + inWindows.err, "") << call[0];
    }
  }
  const std::pair<const char*, const char*> taken[] = {{".tessera", "falta o seu fim"},
                                                       {".tessera.windows", "danificado"}};
  for (const auto& [section, says] : taken) {
    const std::string file = Build("jogo", "Escreva 1");
    const std::string remove = std::string("--remove-section=") + section;
    ASSERT_EQ(RunProcess({.words = {"/usr/bin/objcopy", remove, file}}).status, 0);
    const ProcessResult result = WithoutDisplay({file});
    EXPECT_EQ(result.status, 1) << section;
    EXPECT_NE(result.err.find(says), std::string::npos) << section << ": " << result.err;
  }
}

// A machine without the libraries of the windows, which a runtime is told to find under names that no machine
// has.
class WithoutLibraries : public Runtime {
 protected:
  // The bytes with each of these names turned into one that nobody has.
  static std::string Without(const std::vector<std::string>& libraries, std::string bytes) {
    for (const std::string& library : libraries) {
      std::size_t found = 0;
      for (std::size_t at = bytes.find(library); at != std::string::npos; at = bytes.find(library, at)) {
        bytes[at + 3] = 'q';  // "libqt6..."
        ++found;
      }
      EXPECT_GT(found, 0U) << library;
    }
    return bytes;
  }
  // Where the part with the windows begins.
  static std::size_t PartOf(const std::string& file) {
    return file.find(
        "\x7F"
        "ELF\x02\x01\x01",
        4);
  }
  std::string Executable(const std::string& name, const std::string& bytes) {
    const std::string file = folder_.Write(name, bytes);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
  }
  // As a person starts it who has no terminal, on a desktop with a program for boxes.
  ProcessResult FromTheDesktop(std::vector<std::string> words) {
    std::filesystem::remove(folder_ / "caixa");
    Executable("mesa/zenity", "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + (folder_ / "caixa.novo") + "'\nmv '" +
                                  (folder_ / "caixa.novo") + "' '" + (folder_ / "caixa") + "'\n");
    return RunProcess({.words = std::move(words),
                       .environment = {"QT_QPA_PLATFORM=offscreen", "DISPLAY", "WAYLAND_DISPLAY",
                                       "PATH=" + (folder_ / "mesa") + ":/usr/bin:/bin"}});
  }
  // What the box said, which comes when it comes; empty where none was shown.
  std::string Box() {
    for (int i = 0; i < 500 && !std::filesystem::exists(folder_ / "caixa"); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return ReadBytes(folder_ / "caixa");
  }
};

TEST_F(WithoutLibraries, TheWindowsTellWhatTheyLackAndTheTerminalNeedsNone) {
  const std::string runtime = Executable(
      "tessera-runtime", Without({"libQt6Widgets.so.6", "libQt6Svg.so.6"}, ReadBytes(TESSERA_RUNTIME)));
  const std::string source = folder_.Write("jogo.tsc", "Escreva 1\nFimJanela");
  const ProcessResult built = RunProcess({.words = {TESSERA_TOOL, "build", source, "--runtime", runtime}});
  ASSERT_EQ(built.status, 0) << built.err;
  const std::string missing =
      "as janelas precisam de bibliotecas que faltam nesta máquina: "
      "libqt6Widgets.so.6 (pacote libqt6widgets6), libqt6Svg.so.6 (pacote libqt6svg6); instale com: sudo apt "
      "install libqt6widgets6 libqt6svg6; ou execute sem janelas: ";

  const ProcessResult packed = FromTheDesktop({folder_ / "jogo"});
  EXPECT_EQ(packed.status, 1);
  EXPECT_EQ(packed.out, "");
  const std::string words = missing + "env -u QT_QPA_PLATFORM \"" + (folder_ / "jogo") + "\"";
  EXPECT_EQ(packed.err, "tessera-runtime: " + words + "\n");
  EXPECT_EQ(Box(), "--error\n--no-markup\n--title=Tessera\n--text=" + words + "\n");
  EXPECT_EQ(WithoutDisplay({folder_ / "jogo"}).out, "1\n");

  const std::string tool = Executable("tessera", ReadBytes(TESSERA_TOOL));
  for (const std::vector<std::string>& more : {std::vector<std::string>{}, {"--script", "/dev/null"}}) {
    std::vector<std::string> call = {tool, "run", source};
    call.insert(call.end(), more.begin(), more.end());
    const ProcessResult run = FromTheDesktop(call);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "tessera-runtime: " + missing + "tessera run --console\n");
  }
  EXPECT_EQ(RunProcess({.words = {tool, "run", "--console", source}}).out, "1\n");
}

// A library that no list of ours has, and a part that is none.
TEST_F(WithoutLibraries, WhatTheLoaderSaysIsToldWhereItIsNoneOfTheKnownOnes) {
  const std::string whole = ReadBytes(TESSERA_RUNTIME);
  const std::size_t part = PartOf(whole);
  ASSERT_NE(part, std::string::npos);
  const std::string every = "libqt6widgets6 libqt6gui6 libqt6core6 libqt6printsupport6 libqt6svg6";
  const std::string source = folder_.Write("jogo.tsc", "Escreva 1\nFimJanela");
  const auto run = [&](const std::string& runtime) {
    RunProcess({.words = {TESSERA_TOOL, "build", source, "--runtime", runtime}});
    return FromTheDesktop({folder_ / "jogo"}).err;
  };
  std::string said = run(
      Executable("tessera-runtime", whole.substr(0, part) + Without({"libQt6Svg.so.6"}, whole.substr(part))));
  EXPECT_NE(said.find("faltam nesta máquina: libqt6Svg.so.6; instale com: sudo apt install " + every),
            std::string::npos)
      << said;
  std::string noPart = whole;
  noPart.replace(part, 4, "nada");
  said = run(Executable("tessera-runtime", noPart));
  EXPECT_NE(said.find("não puderam ser carregadas ("), std::string::npos) << said;
  EXPECT_NE(said.find("invalid ELF header); instale com: sudo apt install " + every), std::string::npos)
      << said;
}

// Windows that are damaged themselves can't say so.
TEST_F(WithoutLibraries, DamageOfTheWindowsIsToldByTheDesktop) {
  std::string bytes = ReadBytes(Build("jogo", "Escreva 1"));
  const std::size_t part = PartOf(bytes);
  ASSERT_NE(part, std::string::npos);
  bytes.replace(part, 40, std::string(40, '\0'));
  const ProcessResult result = FromTheDesktop({Executable("danificado", bytes)});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("este arquivo está danificado"), std::string::npos) << result.err;
  EXPECT_NE(Box().find("--text=este arquivo está danificado"), std::string::npos);
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
    const ProcessResult bare = run({TESSERA_RUNTIME});
    EXPECT_EQ(bare.status, 1) << platform;
    EXPECT_NE(bare.err.find("não tem um programa dentro"), std::string::npos) << platform << bare.err;
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
