// A finished program from its building to its end, on a real X server: a person types, points and closes, and
// the program writes down what it saw.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include "support/process.h"
#include "support/virtual_screen.h"

namespace tessera {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{10000};

// Writes what it sees, over and over: a line and a column of the window are one pixel each.
constexpr const char* kWitness =
    "Var tecla String, ultima String, dito String, botoes String, visto String\n"
    "Janela Resolucao = 420, 640\n"
    "Enquanto 1 = 1\n"
    "  Aguarde 5\n"
    "  tecla = TestaTecla(65)\n"
    "  dito = TestaTecla(\"?\")\n"
    "  Se dito <> \"\"\n    ultima = dito\n  FimSe\n"
    "  botoes = TestaMouse()\n"
    "  visto = Unir(tecla, \" \", ultima, \" \", botoes, \" \", LinhaMouse, \" \", ColunaMouse, \" \", "
    "CliqueMouse)\n"
    "  AbreArquivo S, \"visto.txt\", \"TextoGravacao\"\n"
    "  GravaArquivo S, visto\n"
    "  FechaArquivo S\n"
    "Repita\n";

class OnDisplay : public testing::Test {
 protected:
  // Starts a finished program called JOGO, and waits for its window of that title.
  void Start(const std::string& source, const std::string& title = "Tessera - JOGO.TSC") {
    const ProcessResult built =
        RunProcess({.words = {TESSERA_TOOL, "build", folder.Write("jogo.tsc", source)}});
    ASSERT_EQ(built.status, 0) << built.err;
    program = std::make_unique<RunningProcess>(
        ProcessCall{.words = {folder / "jogo"}, .environment = screen.Environment()});
    window = screen.WindowNamed(title);
    ASSERT_NE(window, 0U) << program->Err();
  }

  // Waits until the program has seen just that.
  void ExpectSeen(const std::string& wanted) {
    std::string seen;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    do {
      std::this_thread::sleep_for(milliseconds(5));
      seen = ReadBytes(folder / "visto.txt");
    } while (seen != wanted + "\r\n" && std::chrono::steady_clock::now() < end);
    EXPECT_EQ(seen, wanted + "\r\n") << program->Err();
  }

  // The program ends of itself, and never said a word on the terminal.
  void ExpectEnd() {
    EXPECT_EQ(program->WaitFor(kPatience), 0);
    EXPECT_EQ(program->Out(), "");
    EXPECT_EQ(program->Err(), "");
  }

  TemporaryFolder folder;
  VirtualScreen screen;
  std::unique_ptr<RunningProcess> program;
  std::uint32_t window = 0;
};

}  // namespace

TEST_F(OnDisplay, AFunctionOfALibraryIsToldTheWindowsNumber) {
  Start(
      "API Biblioteca, \"libc.so.6\"\nAPI NomeFuncao, \"labs\"\nAPI Execute, hWnd\n"
      "AbreArquivo S, \"visto.txt\", \"TextoGravacao\"\nGravaArquivo S, Retorno\nFechaArquivo S\n");
  ExpectSeen(std::to_string(window));
}

TEST_F(OnDisplay, KeysAreSeenWhileTheyAreDownAndF6Ends) {
  Start(kWitness);
  ExpectSeen("65-  0 0 0 ");
  screen.Do({"keydown", "a"});
  ExpectSeen("65+ 65 0 0 0 ");
  screen.Do({"keyup", "a"});
  ExpectSeen("65- 65 0 0 0 ");
  screen.Do({"key", "shift+F5"});
  ExpectSeen("65- 116SHIFT 0 0 0 ");
  screen.Do({"key", "F6"});
  ExpectEnd();
}

TEST_F(OnDisplay, ThePointerTellsItsPlaceButtonsAndClicksAndTheFrameCloses) {
  Start(kWitness);
  screen.PointAt(window, 80, 42);
  ExpectSeen("65-  0 42 80 ");
  screen.Do({"mousedown", "1"});
  ExpectSeen("65-  10 42 80 ");
  screen.PointAt(window, 300, 200);
  ExpectSeen("65-  10 200 300 ");
  screen.Do({"mouseup", "1"});
  ExpectSeen("65-  0 200 300 CLIQUE");
  screen.Do({"mousedown", "3"});
  ExpectSeen("65-  1 200 300 CLIQUE");
  screen.Do({"mouseup", "3"});
  screen.Do({"click", "--repeat", "2", "--delay", "20", "1"});
  ExpectSeen("65-  0 200 300 DUPLOCLIQUE");
  screen.Close(window);
  ExpectEnd();
}

TEST_F(OnDisplay, TheInputFormAndABoxAreAnsweredByKeys) {
  Start(
      "Var nome String, certo String\nnome = EntraTexto(\"Nome\", \"\")\n"
      "certo = Mensagem(\"OPCAOSIMNAO\", nome)\nAbreArquivo S, \"visto.txt\", \"TextoGravacao\"\n"
      "GravaArquivo S, Unir(nome, \" \", certo)\nFechaArquivo S\nEnquanto 1 = 1\nAguarde 5\nRepita\n",
      "JOGO");
  screen.Do({"type", "Ana"});
  screen.Do({"key", "Return"});
  screen.Do({"key", "Return"});
  screen.WindowNamed("JOGO", window);
  screen.Do({"key", "alt+s"});
  ExpectSeen("Ana SIM");
  screen.Do({"key", "Pause"});
  ExpectEnd();
}

// Behind the key nothing else happens on the screen.
TEST_F(OnDisplay, WhatComesWhileTheProgramSleepsIsSeenWhenItWakes) {
  Start(
      "Var tecla String\nAguarde 1000\ntecla = TestaTecla(\"?\")\n"
      "AbreArquivo S, \"visto.txt\", \"TextoGravacao\"\nGravaArquivo S, tecla\nFechaArquivo S\n"
      "Enquanto 1 = 1\nAguarde 5\nRepita\n");
  screen.Do({"key", "b"});
  ExpectSeen("66");
}

TEST_F(OnDisplay, AProgramThatComputesIsClosedWhenItNextLetsEventsThrough) {
  Start(
      "Var i Inteiro\nEnquanto i < 300000\ni++\nRepita\nAbreArquivo S, \"visto.txt\", \"TextoGravacao\"\n"
      "GravaArquivo S, \"fim\"\nFechaArquivo S\nEnquanto 1 = 1\nAguarde 5\nRepita\n");
  screen.Do({"key", "F6"});
  ExpectEnd();
  EXPECT_EQ(ReadBytes(folder / "visto.txt"), "fim\r\n");
}

// The window closes as if a person had closed it, wherever the program stands.
TEST_F(OnDisplay, APoliteEndOfTheSystemClosesTheWindow) {
  for (const std::string rest : {"Enquanto 1 = 1\nRepita\n", "Aguarde 600000\n", "Mensagem \"oi\"\n", ""}) {
    std::filesystem::remove(folder / "visto.txt");
    Start("AbreArquivo S, \"visto.txt\", \"TextoGravacao\"\nGravaArquivo S, \"linha\"\n" +
              std::string(rest.empty() ? "Aguarde 1\n" : rest),
          rest.starts_with("Mensagem") ? "JOGO" : "Tessera - JOGO.TSC");
    program->Signal(SIGTERM);
    EXPECT_EQ(program->WaitFor(kPatience), 0) << rest;
    EXPECT_EQ(ReadBytes(folder / "visto.txt"), "linha\r\n") << rest;
  }
}

// The lines that a program has written are in their files when its screen is lost.
TEST_F(OnDisplay, ALostScreenLosesNoLine) {
  Start("AbreArquivo S, \"visto.txt\", \"TextoGravacao\"\nGravaArquivo S, \"linha\"\nAguarde CliqueBotao\n");
  screen.Stop();
  ASSERT_TRUE(program->WaitFor(kPatience));
  EXPECT_EQ(ReadBytes(folder / "visto.txt"), "linha\r\n");
}

// A server without other clients begins anew whenever its last one goes, and refuses whoever comes meanwhile.
TEST(DisplayStart, AServerThatResetsShowsTheWindowEachTime) {
  const VirtualScreen screen(VirtualScreen::Behind::Resets);
  const TemporaryFolder folder;
  const std::string built = folder / "jogo";
  ASSERT_EQ(
      RunProcess({.words = {TESSERA_TOOL, "build", folder.Write("jogo.tsc", "Aguarde 1\nFimJanela")}}).status,
      0);
  for (int start = 0; start < 8; ++start) {
    const ProcessResult result = RunProcess({.words = {built}, .environment = screen.Environment()});
    EXPECT_EQ(result.status, 0) << start;
    EXPECT_EQ(result.err, "") << start;
  }
}

}  // namespace tessera
