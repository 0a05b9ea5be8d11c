#include "commands/file_commands.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/text_file.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// A byte position from 1, beyond 32 bits as well.
std::uint64_t BytePosition(const Value& value) {
  constexpr double kExact = 9007199254740992.0;  // up to here a float tells each position
  const double position = RoundHalfEven(value.ToDouble());
  if (position < 1) FailArgument();
  if (position > kExact) FailOverflow();
  return static_cast<std::uint64_t>(position);
}

std::size_t ByteCount(const Value& value) {
  const std::int32_t count = value.ToInteger();
  if (count < 0) FailArgument();
  return static_cast<std::size_t>(count);
}

}  // namespace

// The entry of an alias; null, behind a box, for one that is not in the table.
FileAlias* FileCommands::FindAlias(std::string_view command, std::string_view alias) {
  FileAlias* entry = alias.empty() ? nullptr : table_.Find(alias);
  if (entry == nullptr) {
    ShowCritical(run_, std::string(command)
                           .append(" - Apelido de arquivo não encontrado: "_w)
                           .append(alias)
                           .append(kCrLf)
                           .append(SourcePositionText(run_)));
  }
  return entry;
}

// The number of the file, or 0 where the mode opens nothing.
int FileCommands::Open(const std::string& path, FileMode mode) {
  const int number = run_.fileNumbers.Free();
  if (mode == FileMode::Binary) {
    run_.fileNumbers.Put(number, BinaryFile::Open(run_.host.files, path));
  } else if (mode == FileMode::Read) {
    run_.fileNumbers.Put(number, TextReader::Open(run_.host.files, path));
  } else if (mode == FileMode::Write) {
    run_.fileNumbers.Put(number, TextWriter::Open(run_.host.files, path));
  } else {
    return 0;
  }
  return number;
}

// KEPT: with all aliases taken nothing is opened and nothing said (FileCommands.The21stAliasOpensNothing).
// OPEN: an opening that fails leaves the entry free, so that the program may try again; a file without a name
// could never be reached, and is failure 52.
Value FileCommands::AbreArquivo(const WordCall& call) {
  const Arguments arguments(call);
  FileAlias* entry = table_.FirstFree();
  if (entry == nullptr) return {};
  const std::string alias = Upper(arguments.Text("apelido"));
  if (alias.empty()) Fail(52);
  const std::string path = run_.paths.SystemPath(arguments.Text("arquivo"));
  const FileMode mode = FileModeOf(Upper(arguments.Text("modo")));
  run_.fileNumbers.FlushAll();
  const int number = Open(path, mode);
  *entry = {alias, number, mode};
  return {};
}

Value FileCommands::FechaArquivo(const WordCall& call) {
  FileAlias* entry = FindAlias("FechaArquivo", Arguments(call).Text("apelido"));
  if (entry == nullptr) return std::int32_t{0};
  const FileAlias closed = std::exchange(*entry, {});
  // A disk that refuses the last lines is told, and the file is closed all the same.
  const auto failure = Guard([&] {
    if (closed.mode == FileMode::Write) run_.fileNumbers.Get<TextWriter>(closed.number).Flush();
  });
  run_.fileNumbers.Close(closed.number);
  if (failure) throw RunFailure(*failure);
  return std::int32_t{0};
}

Value FileCommands::LeArquivo(const WordCall& call) {
  const Arguments arguments(call);
  std::string own;
  const FileAlias* entry = FindAlias("LeArquivo", arguments.TextView("apelido", own));
  if (entry == nullptr) return {};
  if (entry->mode == FileMode::Binary) {
    const Value position = arguments.Number("posição");
    const Value length = arguments.Number("tamanho");
    const BinaryFile& file = run_.fileNumbers.Get<BinaryFile>(entry->number);
    return Quote(file.Read(BytePosition(position), ByteCount(length)));
  }
  if (entry->mode == FileMode::Read) {
    // KEPT: a line that is the word itself looks like the end (FileCommands.ALineEofEndsAReadingLoop).
    return Quote(run_.fileNumbers.Get<TextReader>(entry->number).ReadLine().value_or("EOF"));
  }
  return {};
}

// What is written is worked out before the file is asked for: a function in it may close the file.
Value FileCommands::GravaArquivo(const WordCall& call) {
  const Arguments arguments(call);
  std::string own;
  const FileAlias* entry = FindAlias("GravaArquivo", arguments.TextView("apelido", own));
  if (entry == nullptr) return {};
  if (entry->mode == FileMode::Binary) {
    const Value position = arguments.Number("texto ou posição");
    const std::string_view bytes = arguments.TextView("texto", own);
    run_.fileNumbers.Get<BinaryFile>(entry->number).Write(BytePosition(position), bytes);
  } else if (entry->mode == FileMode::Write) {
    const std::string_view line = arguments.TextView("texto ou posição", own);
    run_.fileNumbers.Get<TextWriter>(entry->number).WriteLine(line);
  }
  return {};
}

Value FileCommands::TamanhoArquivo(const WordCall& call) {
  const FileAlias* entry = FindAlias("TamanhoArquivo", Arguments(call).Text("apelido"));
  if (entry == nullptr) return std::int32_t{0};
  const FileNumbers& files = run_.fileNumbers;
  const std::uint64_t size = entry->mode == FileMode::Read    ? files.Get<TextReader>(entry->number).Size()
                             : entry->mode == FileMode::Write ? files.Get<TextWriter>(entry->number).Size()
                                                              : files.Get<BinaryFile>(entry->number).Size();
  if (size > std::numeric_limits<std::int32_t>::max()) return static_cast<double>(size);
  return static_cast<std::int32_t>(size);
}

Value FileCommands::Diretorio(const WordCall& call) {
  const Arguments arguments(call);
  const bool begins = !arguments.IsEmpty("filtro");
  if (begins) {
    const std::string path = arguments.Text("filtro");
    std::size_t name = path.size();
    while (name > 0 && !IsPathSeparator(path[name - 1])) --name;
    // A pattern without a folder means the program's, one without a name every file.
    const std::string folder = name == 0 ? "." : path.substr(0, name);
    found_ = FilesThatFit(run_.host.files, run_.paths.SystemPath(folder),
                          name == path.size() ? "*" : path.substr(name));
    nextFound_ = 0;
    searching_ = true;
  } else if (!searching_) {
    FailArgument();
  }
  std::string next;
  if (nextFound_ < found_.size()) {
    next = found_[nextFound_++];
  } else {
    searching_ = false;
  }
  return begins ? Quote(next) : next;
}

std::string FileCommands::SideFilePath() const {
  return run_.paths.SystemPath(run_.RuntimeFolderText + "\\TS.arq");
}

Value FileCommands::LeString(const WordCall& call) {
  const std::string key = Arguments(call).Text("chave");
  return Quote(sideFile_.LeString(SideFilePath(), key));
}

Value FileCommands::SalvaString(const WordCall& call) {
  const Arguments arguments(call);
  const std::string key = arguments.Text("chave");
  sideFile_.SalvaString(SideFilePath(), key, arguments.Text("valor"));
  return {};
}

void FileCommands::CloseAll() {
  for (FileAlias& entry : table_) run_.fileNumbers.Close(std::exchange(entry, {}).number);
}

FileCommands::FileCommands(CommandTable& table, Run& run) : run_(run), sideFile_(run.host.files) {
  constexpr MemberRow<FileCommands> kRows[] = {
      {"AbreArquivo", &FileCommands::AbreArquivo},
      {"FechaArquivo", &FileCommands::FechaArquivo},
      {"LeArquivo", &FileCommands::LeArquivo},
      {"GravaArquivo", &FileCommands::GravaArquivo},
      {"TamanhoArquivo", &FileCommands::TamanhoArquivo},
      {"Diretorio", &FileCommands::Diretorio},
      {"LeString", &FileCommands::LeString},
      {"SalvaString", &FileCommands::SalvaString},
  };
  Bind(table, kRows, *this);
}

}  // namespace tessera
