// File transfer against a real server on loopback, and against one of the test's own that breaks off or
// stalls.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <random>
#include <thread>

#include "platform/part_library.h"
#include "support/core_program.h"
#include "support/process.h"
#include "support/temporary_folder.h"
#include "system/ftp_client.h"

namespace tessera::test {

namespace {

class RealServer {
 public:
  explicit RealServer(const std::string& certificate = {}) {
    std::vector<std::string> words = {"/usr/bin/python3", TESSERA_FTP_SERVER, folder.path()};
    if (!certificate.empty()) words.push_back(certificate);
    process_.emplace(ProcessCall{.words = words});
    for (int i = 0; i < 500 && process_->Out().empty(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    host = "127.0.0.1:" + process_->Out().substr(0, process_->Out().find('\n'));
  }

  TemporaryFolder folder;
  std::string host;

 private:
  std::optional<RunningProcess> process_;
};

// Speaks just enough to begin sending a file, and then does not go on.
class FaultyServer {
 public:
  enum class Fault { RefusesLate, BreaksOff, Stalls };

  FaultyServer(Fault fault, std::function<void()> meanwhile = {})
      : fault_(fault), meanwhile_(std::move(meanwhile)), control_(Heard()), data_(Heard()) {
    host = "127.0.0.1:" + std::to_string(PortOf(control_));
    thread_ = std::thread([this] { Serve(); });
  }
  ~FaultyServer() {
    over_ = true;
    shutdown(control_, SHUT_RDWR);
    shutdown(data_, SHUT_RDWR);
    thread_.join();
    close(control_);
    close(data_);
  }

  std::string host;

 private:
  static int Heard() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int made = socket(AF_INET, SOCK_STREAM, 0);
    bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    listen(made, 4);
    return made;
  }
  static int PortOf(int heard) {
    sockaddr_in own{};
    socklen_t length = sizeof own;
    getsockname(heard, reinterpret_cast<sockaddr*>(&own), &length);
    return ntohs(own.sin_port);
  }
  static void Say(int line, const std::string& text) {
    const std::string reply = text + "\r\n";
    send(line, reply.data(), reply.size(), MSG_NOSIGNAL);
  }

  void Serve() {
    const int line = accept(control_, nullptr, nullptr);
    if (line < 0) return;
    Say(line, "220-vários\r\n 230 ainda não\r\n220 pronto");
    std::string word;
    int data = -1;
    for (char c = 0; recv(line, &c, 1, 0) == 1;) {
      if (c != '\n') {
        word += c;
        continue;
      }
      if (word.starts_with("EPSV")) {
        Say(line, "229 (|||" + std::to_string(PortOf(data_)) + "|)");
      } else if (word.starts_with("SIZE")) {
        Say(line, "213 1000");
      } else if (word.starts_with("RETR")) {
        if (meanwhile_) meanwhile_();
        if (fault_ == Fault::RefusesLate) {
          Say(line, "550 não há");
        } else {
          Say(line, "150 aqui vai");
          data = accept(data_, nullptr, nullptr);
          send(data, "m", 1, MSG_NOSIGNAL);
          while (fault_ == Fault::Stalls && !over_) std::this_thread::sleep_for(std::chrono::milliseconds(5));
          break;
        }
      } else {
        Say(line, word.starts_with("USER")   ? "230 entre"
                  : word.starts_with("AUTH") ? "500 não sei"
                                             : "200 sim");
      }
      word.clear();
    }
    if (data >= 0) close(data);
    close(line);
  }

  Fault fault_;
  std::function<void()> meanwhile_;
  int control_;
  int data_;
  std::atomic<bool> over_ = false;
  std::thread thread_;
};

// A program in a folder of its own, run by the tool.
class Ftp : public testing::Test {
 protected:
  ProcessResult Run(const std::string& source) {
    folder_.Write("P.tsc", "Var r String\n" + source);
    return RunProcess({.words = {TESSERA_TOOL, "run", "--console", folder_ / "P.tsc"}});
  }
  static std::string Connect(const std::string& host, const std::string& password = "segredo") {
    return "ConectaFTP \"" + host + "\", \"lab\", \"" + password + "\"\n";
  }
  // Nothing lies about beside what the test made.
  bool HasLeftovers() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      if (entry.path().string().find(".parte") != std::string::npos) return true;
    }
    return false;
  }

  TemporaryFolder folder_;
};

constexpr const char* kEscreva = "Escreva r\n";

}  // namespace

TEST_F(Ftp, FilesGoBothWaysWholeUnderNamesThatStayAsTheyAre) {
  const RealServer server;
  std::mt19937 random(7);
  std::string content(2'000'001, '\0');
  for (char& c : content) c = static_cast<char>(random());
  folder_.Write("grande", content);
  folder_.Write("vazio", "");
  std::string source = Connect(server.host);
  const std::vector<std::string> names = {"a#b", "%41", "que?", "x;type=a", "/da raiz", "maçã", "um dois"};
  for (const std::string& name : names) source += "r = PoeArquivoFTP(\"grande\", \"" + name + "\")\n";
  source += std::string(kEscreva) + "r = BaixaArquivoFTP(\"/maçã\", \"volta\")\n" + kEscreva +
            "PoeArquivoFTP \"vazio\", \"nada\"\nBaixaArquivoFTP \"nada\", \"nada\"\n";
  const ProcessResult result = Run(source);
  EXPECT_EQ(result.out, "226 Transfer complete.\n226 Transfer complete.\n") << result.err;
  for (const std::string& name : names)
    EXPECT_TRUE(server.folder.Read(name.substr(name.starts_with('/') ? 1 : 0)) == content) << name;
  EXPECT_TRUE(folder_.Read("volta") == content);
  EXPECT_TRUE(folder_.Has("nada"));
  EXPECT_FALSE(HasLeftovers());
}

TEST_F(Ftp, TheBackupOfTheExamplesSendsAFolder) {
  const RealServer server;
  std::filesystem::copy(TESSERA_EXAMPLES "/Reserva.tsc", folder_ / "Reserva.tsc");
  for (const std::string name : {"um", "dois.txt", "três"})
    folder_.Write("pasta/" + name, "conteúdo de " + name);
  const ProcessResult result =
      RunProcess({.words = {TESSERA_TOOL, "run", "--console", folder_ / "Reserva.tsc", "--", server.host,
                            "lab", "segredo", folder_ / "pasta"},
                  .input = "clique BSair\n"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "[info] 3 de 3 arquivos copiados.\n");
  for (const std::string name : {"um", "dois.txt", "três"})
    EXPECT_EQ(server.folder.Read(name), "conteúdo de " + name);
}

TEST_F(Ftp, LinesThatTheProgramHasWrittenAreInTheFileThatGoes) {
  const RealServer server;
  Run(Connect(server.host) +
      "AbreArquivo S, \"linhas\", TEXTOGRAVACAO\nGravaArquivo S, \"uma\"\nPoeArquivoFTP \"linhas\", "
      "\"linhas\"");
  EXPECT_EQ(server.folder.Read("linhas"), "uma\r\n");
}

TEST_F(Ftp, ARefusalIsTheAnswerAndTouchesNoFile) {
  const RealServer server;
  folder_.Write("velho", "o velho");
  const ProcessResult result =
      Run(Connect(server.host) + "r = BaixaArquivoFTP(\"falta\", \"velho\")\n" + kEscreva +
          "r = PoeArquivoFTP(\"velho\", \"sem/pasta\")\n" + kEscreva + Connect(server.host, "errada") +
          "r = BaixaArquivoFTP(\"falta\", \"novo\")\n" + kEscreva);
  EXPECT_EQ(result.out,
            "550 /falta is not retrievable.\n550 No such file or directory.\n530 Authentication failed.\n")
      << result.err;
  EXPECT_EQ(folder_.Read("velho"), "o velho");
  EXPECT_FALSE(folder_.Has("novo"));
}

TEST_F(Ftp, NoAnswerIsAFailureThatNamesTheHostAndNeverThePassword) {
  std::string closed;
  { closed = FaultyServer(FaultyServer::Fault::BreaksOff).host; }
  const auto failure = [&](const std::string& source) { return Run(source).err; };
  const std::string head = "[falha] Editor: 0 Linha: ";
  EXPECT_EQ(failure("BaixaArquivoFTP \"a\", \"b\""),
            head + "2: Dispositivo indisponível: nenhum servidor foi escolhido com ConectaFTP\n");
  EXPECT_EQ(failure(Connect(closed) + "BaixaArquivoFTP \"a\", \"b\""),
            head + "3: Dispositivo indisponível: " + closed + ": o servidor recusou a conexão\n");
  EXPECT_EQ(failure(Connect(closed) + "PoeArquivoFTP \"falta\", \"b\""),
            head + "3: Dispositivo indisponível: o arquivo falta não pode ser lido: o caminho não existe\n");
  EXPECT_EQ(failure(Connect("lab:segredo@" + closed) + "BaixaArquivoFTP \"a\", \"b\"").find("segredo"),
            std::string::npos);
}

TEST_F(Ftp, ATransferThatBreaksOffLeavesTheOldFile) {
  const FaultyServer server(FaultyServer::Fault::BreaksOff);
  folder_.Write("velho", "o velho");
  const ProcessResult result = Run(Connect(server.host) + "BaixaArquivoFTP \"a\", \"velho\"");
  EXPECT_NE(result.err.find("a conexão foi interrompida"), std::string::npos) << result.err;
  EXPECT_EQ(folder_.Read("velho"), "o velho");
  EXPECT_FALSE(HasLeftovers());
}

TEST_F(Ftp, ADiskThatRefusesIsTheFailureThatIsTold) {
  const RealServer server;
  server.folder.Write("f", "bytes");
  EXPECT_NE(
      Run(Connect(server.host) + "BaixaArquivoFTP \"f\", \"/falta/f\"").err.find("Arquivo não encontrado"),
      std::string::npos);
  std::filesystem::create_directory(folder_ / "pasta");
  EXPECT_NE(Run(Connect(server.host) + "BaixaArquivoFTP \"f\", \"pasta\"").err.find("Erro de acesso"),
            std::string::npos);
}

TEST_F(Ftp, EncryptsWhereTheServerDoes) {
  const std::string certificate = folder_ / "par.pem";
  const std::string make = "openssl req -x509 -newkey rsa:2048 -nodes -keyout " + certificate + " -out " +
                           certificate + ".c -days 2 -subj /CN=lab 2>/dev/null && cat " + certificate +
                           ".c >> " + certificate;
  ASSERT_EQ(std::system(make.c_str()), 0);
  const RealServer server(certificate);
  folder_.Write("f", "cifrado");
  const std::string puts = "r = PoeArquivoFTP(\"f\", \"f\")\n";
  EXPECT_EQ(Run(Connect(server.host) + puts + kEscreva + puts + kEscreva).out,
            "226 Transfer complete.\n226 Transfer complete.\n");
  EXPECT_EQ(server.folder.Read("f"), "cifrado") << "this server takes no password in the clear";
}

TEST_F(Ftp, EventsRunWhileTheServerTakesItsTime) {
  std::atomic<bool> happened = false;
  const FaultyServer server(FaultyServer::Fault::RefusesLate, [&] {
    for (int i = 0; i < 500 && !happened; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  });
  CoreProgram program([](Services& services) { services.partFolders = {TESSERA_PARTS}; });
  int nested = 0;
  program.events.meanwhile = [&] {
    if (happened.exchange(true)) return;
    const auto failure = Guard([&] { program.commands.CommandCall("BaixaArquivoFTP", "\"b\", \"/b\""); });
    nested = failure ? static_cast<int>(failure->number()) : 0;
  };
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(
      program.Run("Var r String\n" + Connect(server.host) + "r = BaixaArquivoFTP(\"a\", \"/a\")\nEscreva r"),
      "550 não há\n");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  EXPECT_EQ(nested, 68) << "one transfer at a time";
}

TEST_F(Ftp, ALongTransferShowsItsProgressOnATerminalAlone) {
  const auto late = [] { std::this_thread::sleep_for(std::chrono::milliseconds(900)); };
  for (const bool isTerminal : {true, false}) {
    const FaultyServer server(FaultyServer::Fault::RefusesLate, late);
    folder_.Write("P.tsc", Connect(server.host) + "BaixaArquivoFTP \"longo\", \"b\"\nFimJanela");
    std::vector<std::string> words = {TESSERA_TOOL, "run", "--console", folder_ / "P.tsc"};
    if (isTerminal) {
      const std::string line = words[0] + " run --console " + words[3];
      words = {"/usr/bin/script", "-qec", line, "/dev/null"};
    }
    const ProcessResult result = RunProcess({.words = words});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out.find("\r\033[Klongo: ") != std::string::npos, isTerminal) << result.out;
    EXPECT_EQ(result.out.ends_with("\r\033[K"), isTerminal) << "and it vanishes";
  }
}

TEST_F(Ftp, WithoutItsPartABoxNamesThePackage) {
  CoreProgram program([this](Services& services) { services.partFolders = {folder_.path()}; });
  EXPECT_EQ(program.Run(Connect("127.0.0.1:1") +
                        "Var r String\nr = BaixaArquivoFTP(\"a\", \"/a\")\nEscreva \"[\", r, \"]\""),
            "[]\n");
  ASSERT_EQ(program.Boxes().size(), 1U);
  EXPECT_TRUE(program.Boxes()[0].starts_with("Instale o pacote tessera-net")) << program.Boxes()[0];
}

TEST_F(Ftp, AServerThatStallsIsGivenUp) {
  const PartEntry part =
      LoadPart(std::vector<std::filesystem::path>{TESSERA_PARTS}, "net", kFtpClientEntry, "");
  ASSERT_NE(part.entry, nullptr) << part.problem;
  const std::unique_ptr<FtpClient> client(reinterpret_cast<FtpClientEntry>(part.entry)());
  const FaultyServer server(FaultyServer::Fault::Stalls);
  const auto transfer = client->Start({.server = {.host = server.host, .user = "lab", .password = "segredo"},
                                       .remote = "a",
                                       .store = [](std::string_view) { return true; },
                                       .load = {},
                                       .timeOut = std::chrono::seconds(1)});
  const auto start = std::chrono::steady_clock::now();
  while (transfer->Step()) continue;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6));
  EXPECT_EQ(transfer->Problem(), "o servidor não respondeu a tempo");
  EXPECT_FALSE(transfer->IsWhole());
  EXPECT_EQ(transfer->Progress().done, 1U);
}

}  // namespace tessera::test
