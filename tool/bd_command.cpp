// `tessera bd info`, `check`, `unlock` and `repair`: a look at a record file from outside, and its mending.
#include <unistd.h>

#include <iostream>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "recorddb/header_lock.h"
#include "recorddb/tsa_repair.h"
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

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

std::string Unreadable(const std::string& path, const RunFailure& failure) {
  return path + ": não pode ser lido: " + ToUtf8(failure.description());
}

void PrintDamaged(const BdFile& bd, const TsaFindings& findings) {
  for (const std::int32_t number : findings.damaged) {
    const TsaRecord record = ReadTsaRecord(*bd.file, bd.header, number);
    for (std::size_t i = 0; i < record.values.size(); ++i) {
      if (record.values[i]) continue;
      std::cout << "registro " << number << ": o campo " << ToUtf8(bd.header.fields[i].name)
                << " não se decodifica\n";
    }
  }
}

// What a repair mends.
void PrintBroken(const TsaFindings& findings) {
  for (const std::int32_t number : findings.blank)
    std::cout << "registro " << number << ": em branco, de uma inclusão que não terminou\n";
  if (findings.missing > 0)
    std::cout << (findings.missing == 1 ? "falta" : "faltam") << " no arquivo "
              << Counted(std::uint64_t(findings.missing), " registro", " registros") << " da contagem\n";
  if (findings.untold > 0)
    std::cout << "o arquivo tem " << Counted(std::uint64_t(findings.untold), " registro", " registros")
              << " além da contagem\n";
  if (findings.rest > 0)
    std::cout << "o arquivo termina com " << Counted(findings.rest, " byte", " bytes")
              << " de um registro partido\n";
  if (findings.busy) std::cout << "o arquivo está marcado como ocupado\n";
}

// A name beside the file that nothing has.
std::string FreeCopyName(FileStore& files, const std::string& path) {
  std::string copy = path + ".copia";
  for (int number = 2; IsFile(files, copy); ++number) copy = path + ".copia" + std::to_string(number);
  return copy;
}

}  // namespace

std::variant<std::unique_ptr<BinaryFile>, std::string> OpenRawFile(const std::string& path) {
  if (access(path.c_str(), F_OK) != 0) return path + ": arquivo não encontrado";
  std::unique_ptr<BinaryFile> file;
  SystemFiles files;
  if (const auto failure = Guard([&] { file = BinaryFile::Open(files, path); })) {
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
  TsaFindings findings;
  if (const auto failure = Guard([&] { findings = ExamineTsa(*bd.file, header); }))
    return Refuse(Unreadable(path, *failure));
  std::cout << "Banco de dados: " << ToUtf8(header.name) << '\n'
            << "Criado em: " << ToUtf8(header.created) << '\n'
            << "Último uso: " << ToUtf8(header.lastRun) << '\n'
            << "Senha: " << (header.password.empty() ? "não pede" : "pede") << '\n'
            << "Ocupado: " << (header.busy ? "sim" : "não") << '\n'
            << "Registros: " << header.count << '\n'
            << "Excluídos: " << findings.deleted << '\n'
            << "Ilegíveis: "
            << findings.damaged.size() + findings.blank.size() + std::size_t(findings.missing) << '\n'
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
  TsaFindings findings;
  if (const auto failure = Guard([&] {
        findings = ExamineTsa(*bd.file, bd.header);
        PrintDamaged(bd, findings);
      })) {
    return Refuse(Unreadable(path, *failure));
  }
  PrintBroken(findings);
  const std::size_t damaged = findings.damaged.size() + findings.blank.size() + std::size_t(findings.missing);
  std::cout << Counted(std::uint64_t(findings.live), " registro bom", " registros bons") << ", "
            << Counted(std::uint64_t(findings.deleted), " excluído", " excluídos") << ", " << damaged
            << " com defeito\n";
  if (findings.NeedsRepair()) std::cout << "Para consertar: tessera bd repair " << path << '\n';
  return damaged == 0 && !findings.NeedsRepair() ? kDone : kRefused;
}

// The file is examined and mended under one lock, and copied before.
int BdRepairSubcommand(const std::string& path) {
  const auto raw = OpenRawFile(path);
  if (const auto* message = std::get_if<std::string>(&raw)) return Refuse(*message);
  BinaryFile& file = *std::get<std::unique_ptr<BinaryFile>>(raw);
  Idle idle;
  const FileLock lock(file, idle);
  const auto opened = OpenBdFile(path);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  const TsaHeader& header = std::get<BdFile>(opened).header;
  SeededRandom random;
  std::string copy;
  SystemFiles files;
  TsaFindings findings;
  const auto failure = Guard([&] {
    findings = ExamineTsa(file, header);
    if (!findings.NeedsRepair()) return;
    copy = FreeCopyName(files, path);
    CopyFile(files, path, copy);
    RepairTsa(file, header, findings, random);
  });
  if (failure) return Refuse(path + ": não pode ser consertado: " + ToUtf8(failure->description()));
  PrintBroken(findings);
  if (!copy.empty()) {
    std::cout << "O arquivo foi consertado; como estava, ficou em " << copy << '\n';
  } else {
    std::cout << "Não há nada a consertar.\n";
  }
  if (findings.damaged.empty()) return kDone;
  std::cout << Counted(findings.damaged.size(),
                       " registro tem campos que não se decodificam e fica como está",
                       " registros têm campos que não se decodificam e ficam como estão")
            << "; veja tessera bd check\n";
  return kRefused;
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
