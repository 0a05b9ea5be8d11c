// `tessera bd info`, `check` and `unlock`: a look at a record file from outside.
#include <unistd.h>

#include <iostream>

#include "platform/failure.h"
#include "recorddb/header_lock.h"
#include "text/code_page.h"
#include "tool/bd_file.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"
#include "values/variable_store.h"

namespace tessera {

namespace {

// The tool waits for a lock with nothing else to do.
class Idle final : public EventDispatch {
 public:
  void ProcessEvents() override {}
  bool AwaitEvents(std::chrono::milliseconds) override { return false; }
  bool AwaitNextEvents() override { return false; }
  void Pause(std::chrono::milliseconds) override {}
  void Post(std::function<void()>) override {}
  std::chrono::milliseconds DispatchTime() override { return {}; }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds, std::function<void()>) override {
    return nullptr;
  }
};

std::string MessageOf(TsaProblem problem) {
  switch (problem) {
    case TsaProblem::TooShort:
      return "o arquivo é menor que o cabeçalho de 20000 bytes; não é um banco de dados inteiro";
    case TsaProblem::NotDecodable:
      return "o cabeçalho não se decodifica; o arquivo não é um banco de dados, ou está danificado";
    case TsaProblem::BadLength:
      return "o cabeçalho se contradiz: os campos não somam o tamanho do registro";
  }
  return {};
}

struct Tally {
  std::int32_t live = 0;
  std::int32_t deleted = 0;
  std::int32_t damaged = 0;
};

template <typename Use>
Tally Walk(const BdFile& bd, Use use) {
  Tally tally;
  for (std::int32_t number = 0; number < bd.header.count; ++number) {
    const TsaRecord record = ReadTsaRecord(*bd.file, bd.header, number);
    tally.live += record.state == TsaState::Live;
    tally.deleted += record.state == TsaState::Deleted;
    tally.damaged += record.state == TsaState::Damaged;
    use(number, record);
  }
  return tally;
}

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

}  // namespace

std::variant<std::unique_ptr<BinaryFile>, std::string> OpenRawFile(const std::string& path) {
  if (access(path.c_str(), F_OK) != 0) return path + ": arquivo não encontrado";
  std::unique_ptr<BinaryFile> file;
  if (const auto failure = Guard([&] { file = BinaryFile::Open(path); })) {
    return path + ": não pode ser aberto: " + ToUtf8(failure->description());
  }
  return file;
}

std::variant<BdFile, std::string> OpenBdFile(const std::string& path) {
  auto opened = OpenRawFile(path);
  if (auto* message = std::get_if<std::string>(&opened)) return std::move(*message);
  BdFile bd{std::get<std::unique_ptr<BinaryFile>>(std::move(opened)), {}};
  std::variant<TsaHeader, TsaProblem> header;
  if (const auto failure = Guard([&] { header = ReadTsaHeader(*bd.file); })) {
    return path + ": não pode ser lido: " + ToUtf8(failure->description());
  }
  if (const auto* problem = std::get_if<TsaProblem>(&header)) return path + ": " + MessageOf(*problem);
  bd.header = std::get<TsaHeader>(std::move(header));
  return bd;
}

int BdInfoSubcommand(const std::string& path) {
  const auto opened = OpenBdFile(path);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  const BdFile& bd = std::get<BdFile>(opened);
  const TsaHeader& header = bd.header;
  const Tally tally = Walk(bd, [](std::int32_t, const TsaRecord&) {});
  std::cout << "Banco de dados: " << ToUtf8(header.name) << '\n'
            << "Criado em: " << ToUtf8(header.created) << '\n'
            << "Último uso: " << ToUtf8(header.lastRun) << '\n'
            << "Senha: " << (header.password.empty() ? "não pede" : "pede") << '\n'
            << "Ocupado: " << (header.busy ? "sim" : "não") << '\n'
            << "Registros: " << header.count << '\n'
            << "Excluídos: " << tally.deleted << '\n'
            << "Ilegíveis: " << tally.damaged << '\n'
            << "Tamanho do registro: " << header.recordLength << '\n'
            << "Campos: " << header.fields.size() << '\n';
  for (const TsaField& field : header.fields) {
    std::cout << "  " << ToUtf8(field.name) << ", " << ToUtf8(field.type);
    if (field.type == kTypeString) std::cout << ", " << field.size;
    std::cout << '\n';
  }
  return kDone;
}

int BdCheckSubcommand(const std::string& path) {
  const auto opened = OpenBdFile(path);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  const BdFile& bd = std::get<BdFile>(opened);
  const Tally tally = Walk(bd, [&](std::int32_t number, const TsaRecord& record) {
    for (std::size_t i = 0; i < record.values.size(); ++i) {
      if (record.values[i]) continue;
      std::cout << "registro " << number << ": o campo " << ToUtf8(bd.header.fields[i].name)
                << " não se decodifica\n";
    }
  });
  std::cout << tally.live << " registros bons, " << tally.deleted << " excluídos, " << tally.damaged
            << " com defeito\n";
  return tally.damaged == 0 ? kDone : kRefused;
}

int BdUnlockSubcommand(const std::string& path) {
  const auto opened = OpenBdFile(path);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  Idle idle;
  bool wasBusy = false;
  if (const auto failure = Guard([&] { wasBusy = Unlock(*std::get<BdFile>(opened).file, idle); })) {
    return Refuse(path + ": não pode ser gravado: " + ToUtf8(failure->description()));
  }
  std::cout << (wasBusy ? "O arquivo foi liberado.\n" : "O arquivo não estava ocupado.\n");
  return kDone;
}

}  // namespace tessera
