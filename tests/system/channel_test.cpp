// Two programs that talk: real processes, on the terminal and with windows, each at its own pace.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <random>
#include <thread>

#include "support/process.h"
#include "support/temporary_folder.h"

namespace tessera::test {

namespace {

constexpr int kBytes = 10'000'000;

// Sends one file and keeps what comes in another one, until both are whole.
constexpr const char* kTalk = R"(
Var t String, enviado Inteiro, vindo Inteiro, tudo Inteiro, pedaco Inteiro, ritmo Inteiro, porta Inteiro
Var voltas Inteiro
tudo = 10000000
porta = Separe(LinhaComando, 3, 5)
pedaco = 7001
ritmo = 1
AbreArquivo De, "de", BINARIO
AbreArquivo Para, "para", BINARIO
enviado = 1
vindo = 1
Se Separe(LinhaComando, 1, 1) = "a"
  EscutaP2P porta
  Enquanto ValorReferencia = ""
    Aguarde 10
  Repita
CasoContrario
  pedaco = 250000
  ritmo = 4
  Retorno = ""
  Enquanto Retorno = ""
    Se voltas = 0
      ConectaP2P "localhost", porta
    FimSe
    voltas++
    Se voltas > 20
      voltas = 0
    FimSe
    Aguarde 10
  Repita
  GravaArquivo Para, vindo, Retorno
  vindo += Comprimento(Retorno)
FimSe
Enquanto vindo <= tudo OU enviado <= tudo
  Se enviado <= tudo
    t = LeArquivo(De, enviado, pedaco)
    EnviaP2P t
    enviado += pedaco
  FimSe
  Retorno = ""
  Aguarde ritmo
  Se Retorno <> ""
    GravaArquivo Para, vindo, Retorno
    vindo += Comprimento(Retorno)
  FimSe
Repita
FimJanela
)";

std::string Content(unsigned seed) {
  std::mt19937 random(seed);
  const std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789\r\n\xE7\xE3\xFF";
  std::string content(kBytes, '\0');
  for (char& c : content) c = letters[random() % letters.size()];
  return content;
}

}  // namespace

TEST(Channel, TwoProgramsExchangeTenMegabytesAtDifferentPaces) {
  const std::string contents[] = {Content(1), Content(2)};
  int port = 20'000 + static_cast<int>(getpid() % 20'000);
#ifdef TESSERA_DESKTOP
  constexpr std::array kHosts = {"--console", "--windows"};
#else
  constexpr std::array kHosts = {"--console"};
#endif
  for (const char* host : kHosts) {
    ++port;
    TemporaryFolder folders[2];
    std::vector<std::unique_ptr<RunningProcess>> programs;
    for (std::size_t i = 0; i < 2; ++i) {
      folders[i].Write("Fala.tsc", kTalk);
      folders[i].Write("de", contents[i]);
      std::vector<std::string> words = {TESSERA_TOOL, "run", folders[i] / "Fala.tsc", "--",
                                        "ab"[i] + (" " + std::to_string(port))};
      if (std::string_view(host) == "--console") words.insert(words.begin() + 2, host);
      programs.push_back(std::make_unique<RunningProcess>(
          ProcessCall{.words = words, .environment = {"QT_QPA_PLATFORM=offscreen"}}));
    }
    for (const auto& program : programs) {
      EXPECT_EQ(program->WaitFor(std::chrono::seconds(30)), 0) << host << program->Err();
    }
    EXPECT_TRUE(folders[0].Read("para") == contents[1]) << host;
    EXPECT_TRUE(folders[1].Read("para") == contents[0]) << host;
  }
}

// The example: one waits, the other one calls, and both keep what was said.
TEST(Channel, TheChatOfTheExamplesCarriesSentencesBothWays) {
  const std::string port = std::to_string(22'000 + getpid() % 20'000);
  TemporaryFolder waiting;
  TemporaryFolder calling;
  for (const TemporaryFolder* folder : {&waiting, &calling}) {
    std::filesystem::copy(TESSERA_EXAMPLES "/Conversa.tsc", *folder / "Conversa.tsc");
  }
  const auto run = [&](const TemporaryFolder& folder, const std::string& script) {
    return std::make_unique<RunningProcess>(
        ProcessCall{.words = {TESSERA_TOOL, "run", "--console", folder / "Conversa.tsc"},
                    .input = "texto TPorta " + port + "\n" + script + "clique BGuardar\nespera 1\nfecha\n"});
  };
  const auto one =
      run(waiting, "clique BEsperar\nrede 3000\nrede 1000\ntexto TFrase tudo bem?\nclique BEnviar\n");
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const auto other = run(calling, "clique BChamar\nrede 300\ntexto TFrase olá\nclique BEnviar\nrede 3000\n");
  EXPECT_EQ(one->WaitFor(std::chrono::seconds(9)), 0) << one->Err();
  EXPECT_EQ(other->WaitFor(std::chrono::seconds(9)), 0) << other->Err();
  EXPECT_EQ(waiting.Read("conversa.txt"), "> ol\xE1\r\neu: tudo bem?\r\n\r\n");
  EXPECT_EQ(calling.Read("conversa.txt"), "eu: ol\xE1\r\n> tudo bem?\r\n\r\n");
}

// The script says when the network acts, an event at a time.
TEST(Channel, AScriptLetsOneEventInAtATime) {
  TemporaryFolder folder;
  const std::string port = std::to_string(41'000 + getpid() % 20'000);
  folder.Write("Escuta.tsc",
               "EscutaP2P " + port +
                   "\nEscreva \"escuta\"\nAguarde Eventos\nEscreva \"1 \", ValorReferencia, Retorno\n"
                   "Escreva \"nada entra aqui\"\nAguarde Eventos\nEscreva \"2 \", Retorno\n"
                   "Aguarde Eventos\nEscreva \"3 fechada\"\nAguarde Eventos\nEscreva \"4 nada aberto\"\n"
                   "EnviaP2P \"x\"\nEscreva \"nunca\"");
  folder.Write("Chama.tsc",
               "ConectaP2P \"127.0.0.1\", " + port + "\nAguarde Eventos\nEnviaP2P \"olá\"\nFimJanela");
  RunningProcess listens({.words = {TESSERA_TOOL, "run", "--console", folder / "Escuta.tsc"},
                          .input = "rede\nrede 5000\nrede\nrede\n"});
  int status = 1;
  // The one who calls may be the first.
  for (int i = 0; i < 100 && status != 0; ++i) {
    status =
        RunProcess({.words = {TESSERA_TOOL, "run", "--console", folder / "Chama.tsc"}, .input = "rede\n"})
            .status;
  }
  EXPECT_EQ(listens.WaitFor(std::chrono::seconds(5)), 1);
  EXPECT_EQ(listens.Out(), "escuta\n1 127.0.0.1\nnada entra aqui\n2 olá\n3 fechada\n4 nada aberto\n");
  EXPECT_EQ(listens.Err(),
            "[falha] Editor: 0 Linha: 12: Dispositivo indisponível: não há conexão com outro programa\n");
}

}  // namespace tessera::test
