#include "system/ftp_commands.h"

#include <utility>
#include <variant>

#include "commands/arguments.h"
#include "platform/arriving_file.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "platform/part_library.h"
#include "platform/system_reason.h"
#include "system/device_failure.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// A server writes UTF-8 or, if it is an old one, bytes of its own.
std::string ReplyText(const std::string& reply) {
  auto text = FromUtf8(reply);
  if (const auto* problem = std::get_if<Utf8Problem>(&text)) {
    return problem->malformed ? reply : FromUtf8Lossy(reply);
  }
  return std::get<std::string>(std::move(text));
}

// The host without what a program may have put in front of it: a name and a password are not for messages.
std::string ShownHost(const FtpServer& server) {
  return FromUtf8Lossy(server.host.substr(server.host.rfind('@') + 1));
}

// True while it lives.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

}  // namespace

FtpCommands::FtpCommands(CommandTable& table, Run& run, std::vector<std::filesystem::path> partFolders,
                         TransferProgress::Teller tellProgress)
    : run_(run), partFolders_(std::move(partFolders)), tellProgress_(std::move(tellProgress)) {
  constexpr MemberRow<FtpCommands> kRows[] = {
      {"ConectaFTP", &FtpCommands::ConectaFTP},
      {"BaixaArquivoFTP", &FtpCommands::BaixaArquivoFTP},
      {"PoeArquivoFTP", &FtpCommands::PoeArquivoFTP},
  };
  Bind(table, kRows, *this);
}

// The server is called by the first transfer.
Value FtpCommands::ConectaFTP(const WordCall& call) {
  const Arguments arguments(call);
  server_ = FtpServer{.host = ToUtf8(Trim(arguments.Text("servidor"))),
                      .user = ToUtf8(arguments.Text("usuário")),
                      .password = ToUtf8(arguments.Text("senha"))};
  return {};
}

Value FtpCommands::BaixaArquivoFTP(const WordCall& call) {
  const Arguments arguments(call);
  const std::string remote = arguments.Text("remoto");
  const std::string place = run_.paths.SystemPath(arguments.Text("local"));
  FtpOrder order = NewOrder(remote);
  ArrivingFile file(run_.host.files, place);
  int error = 0;
  order.store = [&](std::string_view bytes) {
    error = file.Append(bytes);
    return error == 0;
  };
  bool isWhole = false;
  std::optional<std::string> reply;
  const auto failure = Guard([&] { reply = Execute(std::move(order), remote, isWhole); });
  // A disk that refuses is why the transfer broke off.
  if (error == 0 && isWhole) error = file.Commit();
  if (error != 0) FailSystem(error);
  if (failure) throw *failure;
  return Quote(reply.value_or(std::string()));
}

// Lines that the program has written so far are in the file that is sent.
Value FtpCommands::PoeArquivoFTP(const WordCall& call) {
  const Arguments arguments(call);
  const std::string local = arguments.Text("local");
  FtpOrder order = NewOrder(arguments.Text("remoto"));
  run_.fileNumbers.FlushAll();
  const auto [file, error] = run_.host.files.Open(run_.paths.SystemPath(local), OpenAs::Read);
  if (error != 0 || file->Size(order.size) != 0) {
    FailDevice(std::string("o arquivo "_w)
                   .append(local)
                   .append(" não pode ser lido: "_w)
                   .append(FromUtf8Lossy(SystemReason(error))));
  }
  order.load = [source = file.get(), at = std::uint64_t{0}](char* bytes, std::size_t most) mutable {
    std::string read;
    if (ReadAllAt(*source, at, most, read) != 0) return std::size_t{0};
    at += read.size();
    return read.copy(bytes, read.size());
  };
  bool isWhole = false;
  return Quote(Execute(std::move(order), local, isWhole).value_or(std::string()));
}

FtpOrder FtpCommands::NewOrder(const std::string& remote) const {
  if (!server_) FailDevice("nenhum servidor foi escolhido com ConectaFTP"_w);
  return {.server = *server_, .remote = ToUtf8(remote), .store = {}, .load = {}};
}

// OPEN: one answer at a time: an order that comes from an event within another one is refused. Without the
// part the answer is empty, behind a box that names its package.
std::optional<std::string> FtpCommands::Execute(FtpOrder order, const std::string& shownName, bool& isWhole) {
  if (isExecuting_) FailDevice("outra transferência ainda não terminou"_w);
  FtpClient* client = Client();
  if (client == nullptr) return std::nullopt;
  const Flag executing(isExecuting_);
  const std::string host = ShownHost(order.server);
  TransferProgress progress(ToUtf8(shownName), tellProgress_);
  const std::unique_ptr<FtpTransfer> transfer = client->Start(std::move(order));
  while (transfer->Step()) {
    progress.Show(transfer->Progress());
    run_.host.events.ProcessWaiting();
  }
  if (!transfer->Problem().empty()) FailDevice(host + ": " + FromUtf8Lossy(transfer->Problem()));
  isWhole = transfer->IsWhole();
  return ReplyText(transfer->Reply());
}

FtpClient* FtpCommands::Client() {
  if (client_) return client_.get();
  const PartEntry part = LoadPart(partFolders_, "net", kFtpClientEntry, "libcurl4");
  if (part.entry == nullptr) {
    ShowCritical(run_, std::string(part.problem).append(kCrLf).append(SourcePositionText(run_)));
    return nullptr;
  }
  client_.reset(reinterpret_cast<FtpClientEntry>(part.entry)());
  return client_.get();
}

}  // namespace tessera
