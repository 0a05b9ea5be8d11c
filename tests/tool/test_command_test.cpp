// `tessera test` as its user meets it: real programs in real processes.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <thread>

#include "support/process.h"
#include "tool/terminal.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram =
    "Var n String\nn = EntraTexto(\"Nome?\")\nEscreva \"Olá, \", n\nMensagem \"Fim\"\n";
constexpr const char* kOutput = "[entrada] Nome?\nOlá, Maria\n[info] Fim\n";

class TestCommand : public testing::Test {
 protected:
  ProcessResult Test(std::vector<std::string> words) {
    words.insert(words.begin(), {TESSERA_TOOL, "test"});
    return RunProcess({.words = std::move(words), .folder = folder_.path()});
  }
  void ExpectSaid(const ProcessResult& result, int status, std::vector<std::string> texts) {
    EXPECT_EQ(result.status, status) << result.out << result.err;
    for (const std::string& text : texts)
      EXPECT_NE((result.out + result.err).find(text), std::string::npos) << text << "\n"
                                                                         << result.out << result.err;
  }

  TemporaryFolder folder_;
};

TEST_F(TestCommand, BothFormsOfATestSayTheSame) {
  folder_.Write("Ola.tsc", kProgram);
  folder_.Write("Ola.roteiro", "Maria\n");
  folder_.Write("Ola.saida", kOutput);
  folder_.Write("Ola.junto.teste", std::string("Maria\n=== saida ===\n") + kOutput);
  ExpectSaid(Test({}), kDone, {"certo    Ola  ", "certo    Ola.junto  ", "2 testes: 2 certos"});
  folder_.Write("Ola.saida", "Olá, Maria\n");
  folder_.Write("Ola.junto.teste", std::string("Ana\n=== saida ===\n") + kOutput);
  ExpectSaid(Test({}), kRefused,
             {"ERRADO   Ola  ", "+[entrada] Nome?", "ERRADO   Ola.junto  ", "-Olá, Maria", "+Olá, Ana",
              "2 com erros"});
  ExpectSaid(Test({"--filter", "JUNTO"}), kRefused, {"1 teste: 0 certos, 1 com erro"});
  ExpectSaid(Test({"Ola.saida"}), kRefused, {"1 teste: 0 certos, 1 com erro"});
  ExpectSaid(Test({"Ola.tsc"}), kRefused, {"2 testes"});
}

TEST_F(TestCommand, UpdateWritesWhatCameOutAndNothingElse) {
  folder_.Write("Ola.tsc", kProgram);
  folder_.Write("Ola.roteiro", "Maria\n");
  folder_.Write("Ola.junto.teste", "Maria");
  ExpectSaid(Test({}), kRefused, {"falta a saída esperada", "--update"});
  EXPECT_FALSE(fs::exists(folder_ / "Ola.saida"));
  ExpectSaid(Test({"--update"}), kDone, {"gravado  Ola  ", "2 gravados"});
  EXPECT_EQ(ReadBytes(folder_ / "Ola.saida"), kOutput);
  EXPECT_EQ(ReadBytes(folder_ / "Ola.junto.teste"), std::string("Maria\n=== saida ===\n") + kOutput);
  const auto written = fs::last_write_time(folder_ / "Ola.saida");
  ExpectSaid(Test({"--update"}), kDone, {"2 certos"});
  EXPECT_EQ(fs::last_write_time(folder_ / "Ola.saida"), written);
}

TEST_F(TestCommand, ATestLeavesNothingAndFindsNothingOfAnotherOne) {
  folder_.Write("Conta.tsc",
                "Var t String\nAbreArquivo \"a\", \"conta.txt\", \"TEXTOLEITURA\"\nt = LeArquivo(\"a\")\n"
                "FechaArquivo \"a\"\nAbreArquivo \"a\", \"conta.txt\", \"TEXTOGRAVACAO\"\n"
                "GravaArquivo \"a\", Unir(t, \"x\")\nFechaArquivo \"a\"\nEscreva t, \" \", LinhaComando\n");
  folder_.Write("conta.txt", "0\n");
  folder_.Write("Conta.argumentos", "um\ndois\n");
  folder_.Write("Conta.saida", "0 um dois\n");
  ExpectSaid(Test({}), kDone, {"1 certo"});
#ifdef TESSERA_DESKTOP
  ExpectSaid(Test({"--windows"}), kDone, {"1 certo"});
#endif
  EXPECT_EQ(ReadBytes(folder_ / "conta.txt"), "0\n");
}

TEST_F(TestCommand, AFolderOfEditorsIsOneProgram) {
  folder_.Write("Loja/Loja.tsc", "Escreva Dobro(21)\n");
  folder_.Write("Loja/Outros.tsc", "Funcao Dobro(n Inteiro) Inteiro\nRetorne n * 2\nFimFuncao\n");
  folder_.Write("Loja/Outros.saida", "42\n");
  folder_.Write("Loja.saida", "42\n");
  folder_.Write(".cofre/Nada.saida", "");
  ExpectSaid(Test({}), kDone, {"certo    Loja  ", "certo    Loja/Outros  "});
}

TEST_F(TestCommand, AMainEditorMeansTheTestsOfItsFolder) {
  RunProcess({.words = {TESSERA_TOOL, "new", folder_ / "Ola"}});
  folder_.Write("Ola/Outro.tsc", "Funcao Dobro(n Inteiro) Numero\nRetorne n * 2\nFimFuncao\n");
  folder_.Write("Solto.tsc", "Escreva 1\n");
  folder_.Write("Solto.saida", "1\n");
  ExpectSaid(Test({"Ola/Ola.tsc"}), kWrongCall, {"Ola/Ola.tsc: nenhum teste"});
  folder_.Write("Ola/Ola.roteiro", "Ana\n");
  folder_.Write("Ola/Ola.outra.roteiro", "Rui\n");
  ExpectSaid(Test({"Ola/Ola.tsc"}), kRefused, {"2 testes", "falta a saída esperada", "--update"});
  ExpectSaid(Test({"--update", "Ola/Ola.tsc"}), kDone, {"2 gravados"});
  const auto inside = [&](const std::string& file) {
    return RunProcess({.words = {TESSERA_TOOL, "test", file}, .folder = folder_ / "Ola"});
  };
  ExpectSaid(inside("Ola.tsc"), kDone, {"certo    Ola  ", "certo    Ola.outra  ", "2 testes: 2 certos"});
  ExpectSaid(inside("Outro.tsc"), kWrongCall, {"nenhum teste"});
  fs::rename(folder_ / "Ola/Ola.tsc", folder_ / "Ola/Principal.tsc");
  ExpectSaid(inside("Principal.tsc"), kDone, {"2 testes: 2 certos"});
}

TEST_F(TestCommand, WhatGoesWrongIsOneTestsOwn) {
  folder_.Write("Ola.tsc", kProgram);
  folder_.Write("Ola.saida", "[entrada] <Nome>?\n");
  folder_.Write("Orfao.saida", "");
  folder_.Write("Roda.tsc", "Var n Inteiro\nn = 1\nEnquanto n = 1\nRepita\n");
  folder_.Write("Roda.saida", "");
  folder_.Write("Torto.tsc", "Aguarde CliqueBotao\n");
  folder_.Write("Torto.roteiro", "clica\n");
  folder_.Write("Torto.saida", "[roteiro] linha 1: palavra desconhecida: clica\n[estado] 3\n");
  const ProcessResult result = Test({"--timeout", "1", "--junit", folder_ / "j.xml"});
  ExpectSaid(result, kRefused,
             {"FALHOU   Orfao", "falta o programa", "FALHOU   Roda", "não terminou em 1 segundos",
              "certo    Torto", "3 com erros"});
  const std::string xml = ReadBytes(folder_ / "j.xml");
  for (const char* part :
       {"tests=\"4\" failures=\"3\"", "name=\"Ola\"", "message=\"a saída não é a esperada\"",
        "-[entrada] &lt;Nome&gt;?", "</testsuites>"}) {
    EXPECT_NE(xml.find(part), std::string::npos) << part << xml;
  }
  EXPECT_EQ(Test({"--filter", "nada"}).status, kWrongCall);
  EXPECT_EQ(Test({"nada"}).status, kWrongCall);
}

TEST_F(TestCommand, AnInterruptionEndsTheProgramsAndLeavesNothing) {
  folder_.Write("Roda.tsc", "Var n Inteiro\nn = 1\nEnquanto n = 1\nRepita\n");
  folder_.Write("Roda.saida", "");
  const TemporaryFolder temporary;
  RunningProcess running({.words = {TESSERA_TOOL, "test", folder_.path()},
                          .environment = {"TMPDIR=" + temporary.path().string()}});
  while (fs::is_empty(temporary.path())) continue;
  running.Signal(SIGINT);
  EXPECT_EQ(running.WaitFor(std::chrono::seconds(5)), kRefused);
  EXPECT_NE(running.Out().find("interrompido"), std::string::npos) << running.Out();
  EXPECT_TRUE(fs::is_empty(temporary.path()));
}

#ifdef TESSERA_DESKTOP

// The program closes its window by itself: nobody sits at a test's screen.
TEST_F(TestCommand, ARecordedUseIsATestAtOnce) {
  folder_.Write("Conta.tsc",
                "AbreArquivo \"a\", \"conta.txt\", \"TEXTOGRAVACAO\"\nGravaArquivo \"a\", LinhaComando\n"
                "FechaArquivo \"a\"\nEscreva \"grava \", LinhaComando\nFimJanela\n");
  const auto record = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {TESSERA_TOOL, "record", "Conta.tsc"});
    return RunProcess(
        {.words = std::move(words), .environment = {"QT_QPA_PLATFORM=offscreen"}, .folder = folder_.path()});
  };
  ExpectSaid(record({"--", "um"}), kDone, {"gravados Conta.roteiro e Conta.saida"});
  EXPECT_EQ(ReadBytes(folder_ / "Conta.saida"), "grava um\n");
  EXPECT_EQ(ReadBytes(folder_ / "Conta.roteiro"), "");
  EXPECT_FALSE(fs::exists(folder_ / "conta.txt")) << "the program runs in a copy";
  ExpectSaid(Test({}), kDone, {"certo    Conta  "});

  ExpectSaid(record({}), kWrongCall, {"Conta.roteiro: já existe", "--force"});
  ExpectSaid(record({"-o", "Conta.dois.roteiro"}), kDone, {"gravados Conta.dois.roteiro"});
  ExpectSaid(record({"--force", "--", "dois"}), kDone, {"gravados Conta.roteiro"});
  ExpectSaid(Test({}), kDone, {"2 certos"});
  ExpectSaid(record({"--force"}), kDone, {"gravados Conta.roteiro"});
  EXPECT_EQ(ReadBytes(folder_ / "Conta.saida"), "grava \n");
  ExpectSaid(Test({}), kDone, {"2 certos"});
}

TEST_F(TestCommand, ARecordingNeedsAScreenAndAProgram) {
  folder_.Write("Ola.tsc", kProgram);
  const auto record = [&](const std::string& program) {
    return RunProcess({.words = {TESSERA_TOOL, "record", program},
                       .environment = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"},
                       .folder = folder_.path()});
  };
  ExpectSaid(record("Ola.tsc"), kWrongCall, {"um roteiro só se grava com janelas"});
  EXPECT_FALSE(fs::exists(folder_ / "Ola.roteiro"));
  ExpectSaid(record("Nada.tsc"), kWrongCall, {"Nada.tsc"});
}

TEST_F(TestCommand, ARecordingThatDoesNotBeginLeavesTheOlderTestAsItIs) {
  folder_.Write("Ola.tsc", kProgram);
  folder_.Write("Ola.roteiro", "Maria\n");
  folder_.Write("Ola.saida", kOutput);
  folder_.Write("Ola.argumentos", "um\n");
  ExpectSaid(RunProcess({.words = {TESSERA_TOOL, "record", "--force", "Ola.tsc"},
                         .environment = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"},
                         .folder = folder_.path()}),
             kWrongCall, {"um roteiro só se grava com janelas"});
  EXPECT_EQ(ReadBytes(folder_ / "Ola.roteiro"), "Maria\n");
  EXPECT_EQ(ReadBytes(folder_ / "Ola.saida"), kOutput);
  EXPECT_EQ(ReadBytes(folder_ / "Ola.argumentos"), "um\n");
  EXPECT_FALSE(fs::exists(folder_ / "Ola.roteiro~"));
}

TEST_F(TestCommand, AKilledRecordingLeavesItsLinesWhole) {
  folder_.Write("Gira.tsc", "Var n Inteiro\nEnquanto n >= 0\n  n++\n  Aguarde 1\nRepita\n");
  RunningProcess recording({.words = {TESSERA_TOOL, "run", "--record", "gira.txt", "Gira.tsc"},
                            .environment = {"QT_QPA_PLATFORM=offscreen"},
                            .folder = folder_.path()});
  for (int i = 0; i < 1000 && ReadBytes(folder_ / "gira.txt").size() < 11; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  recording.Signal(SIGKILL);
  recording.Wait();
  std::istringstream lines(ReadBytes(folder_ / "gira.txt"));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count)
    EXPECT_TRUE(line.starts_with("espera ") || line.empty()) << line;
  EXPECT_GT(count, 0);
}

#endif

}  // namespace
}  // namespace tessera
