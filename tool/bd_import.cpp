// `tessera bd import`: the way into a record file, from a text of fields or from an SQLite file. A first pass
// over the rows finds the type of each column, a second one writes the records.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>
#include <limits>
#include <optional>

#include "image/codec.h"
#include "platform/descriptor_io.h"
#include "platform/system_clock.h"
#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "recorddb/database_table.h"
#include "recorddb/tsa_writer.h"
#include "text/code_page.h"
#include "text/date.h"
#include "text/number.h"
#include "text/one_based.h"
#include "tool/row_source.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"
#include "values/variable_store.h"

namespace tessera {

namespace {

constexpr std::size_t kNameWidth = 20;  // what a name's slot in the header holds
constexpr std::size_t kRecordLimit = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t kWriteAt = 1 << 20;  // bytes that are gathered before they are written

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

// A line on the terminal that tells how far a long file has come; nothing where nobody looks.
class Progress {
 public:
  void Tell(std::int64_t records) {
    const auto now = std::chrono::steady_clock::now();
    if (!isTerminal_ || now - told_ < std::chrono::milliseconds(200)) return;
    told_ = now;
    shown_ = true;
    std::cerr << '\r' << records << " registros" << std::flush;
  }
  ~Progress() {
    if (shown_) std::cerr << "\r\033[K";
  }

 private:
  bool isTerminal_ = isatty(STDERR_FILENO) != 0;
  bool shown_ = false;
  std::chrono::steady_clock::time_point told_ = std::chrono::steady_clock::now();
};

// OPEN: a number as the outside writes it: a sign, digits, and "," or "." before the fraction. With zeros in
// front it is a code, no number.
std::optional<double> OutsideNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  const std::size_t mark = digits.find_first_of(",.");
  const std::string_view whole = digits.substr(0, mark);
  const auto areDigits = [](std::string_view part) {
    return !part.empty() &&
           std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; });
  };
  if (!areDigits(whole) || (whole.size() > 1 && whole.front() == '0')) return std::nullopt;
  if (mark != std::string_view::npos && !areDigits(digits.substr(mark + 1))) return std::nullopt;
  constexpr std::size_t kDigits = 15;
  if (digits.size() > kDigits + 1) return std::nullopt;
  return WholeNumber(Replace(text, '.', ','));
}

std::optional<double> NumberOf(const Value& cell) {
  const std::string* text = cell.AsText();
  return text == nullptr ? std::optional(cell.ToDouble()) : OutsideNumber(*text);
}

// What the cells of a column have in common.
struct ColumnFacts {
  bool areIntegers = true;
  bool areNumbers = true;
  bool isEmpty = true;
  std::size_t longest = 1;

  void Take(const Value& cell) {
    if (cell.IsEmpty()) return;
    isEmpty = false;
    longest = std::max(longest, cell.ToText().size());
    const auto number = areNumbers ? NumberOf(cell) : std::nullopt;
    areNumbers = number.has_value();
    areIntegers = areIntegers && number && *number == std::trunc(*number) &&
                  std::abs(*number) <= std::numeric_limits<std::int32_t>::max();
  }
};

// A column's name as a field's: letters, digits and "_", not longer than the header's slot, no name twice.
std::string FieldName(std::string_view column, const std::vector<TsaField>& before) {
  std::string name;
  for (const char c : Left(Trim(column), kNameWidth)) {
    const bool isLetter = Upper(c) != Lower(c);
    name += isLetter || (c >= '0' && c <= '9') ? c : '_';
  }
  if (name.empty() || (name.front() >= '0' && name.front() <= '9')) name = Left("C" + name, kNameWidth);
  const auto isTaken = [&](const std::string& candidate) {
    return std::any_of(before.begin(), before.end(),
                       [&](const TsaField& field) { return EqualsIgnoringCase(field.name, candidate); });
  };
  std::string unique = name;
  for (int i = 2; isTaken(unique); ++i) {
    const std::string number = std::to_string(i);
    unique = std::string(Left(name, kNameWidth - number.size())) + number;
  }
  return unique;
}

TsaField FieldOf(std::string_view column, const ColumnFacts& facts, const std::vector<TsaField>& before) {
  TsaField field;
  field.name = FieldName(column, before);
  if (!facts.isEmpty && facts.areIntegers) {
    field.type = kTypeInteiro;
    field.size = sizeof(std::int32_t);
  } else if (!facts.isEmpty && facts.areNumbers) {
    field.type = kTypeDecimal;
    field.size = sizeof(double);
  } else {
    field.type = kTypeString;
    field.size = static_cast<std::int32_t>(facts.longest);
  }
  const Position next = before.empty() ? 1 : before.back().slot.position + before.back().slot.width;
  field.slot = {next, static_cast<std::size_t>(field.size) + kEncodedOverhead};
  return field;
}

// The value of a cell for its field; an empty cell is the field's empty value.
Value CellFor(const TsaField& field, const Value& cell) {
  if (field.type == kTypeString) return cell.ToText();
  return cell.IsEmpty() ? Value(0) : Value(*NumberOf(cell));
}

// The header of what the rows need, or why a record file can't hold them.
std::variant<TsaHeader, std::string> Plan(RowSource& source, Progress& progress) {
  std::vector<ColumnFacts> facts(source.Columns().size());
  ImportedRow row;
  std::int64_t count = 0;
  while (source.Next(row)) {
    for (std::size_t i = 0; i < facts.size(); ++i) facts[i].Take(row[i]);
    progress.Tell(++count);
  }
  if (!source.Problem().empty()) return source.Problem();
  if (facts.empty()) return "não há nenhuma coluna";
  if (facts.size() > kFieldRows) return "são mais de " + std::to_string(kFieldRows) + " colunas";
  if (count > std::numeric_limits<std::int32_t>::max()) return "são registros demais";
  TsaHeader header;
  header.count = static_cast<std::int32_t>(count);
  for (std::size_t i = 0; i < facts.size(); ++i)
    header.fields.push_back(FieldOf(source.Columns()[i], facts[i], header.fields));
  const tsa::Slot last = header.fields.back().slot;
  if (last.position + last.width - 1 > kRecordLimit)
    return "um registro passaria de " + std::to_string(kRecordLimit) + " bytes; encurte os textos";
  header.recordLength = static_cast<std::int32_t>(last.position + last.width - 1);
  return header;
}

// The error number of the system, 0 where all is written.
int WriteRecords(RowSource& source, const TsaHeader& header, int descriptor, Progress& progress) {
  SeededRandom chance;
  // The first record begins on the header's last byte.
  std::string bytes = EncodeTsaHeader(header, chance);
  if (header.count > 0) bytes.pop_back();
  source.Rewind();
  ImportedRow row;
  for (std::int32_t number = 0; number < header.count && source.Next(row); ++number) {
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = CellFor(header.fields[i], row[i]);
    bytes += EncodeTsaRecord(header, row, chance);
    progress.Tell(number);
    if (bytes.size() < kWriteAt) continue;
    std::string_view gathered = bytes;
    if (const int error = WriteAll(descriptor, gathered)) return error;
    bytes.clear();
  }
  std::string_view rest = bytes;
  return WriteAll(descriptor, rest);
}

std::string Now() {
  const auto now = std::chrono::floor<std::chrono::seconds>(SystemClock().Now());
  return DateText(std::chrono::floor<std::chrono::days>(now)) + " " + TimeText(now);
}

// The descriptor block with which a program opens the file.
void TellBlock(const TsaHeader& header) {
  std::cout << Counted(std::uint64_t(header.count), " registro", " registros")
            << ". Em um programa ao lado do arquivo:\n\nBD " << ToUtf8(header.name) << ", .\n";
  for (const TsaField& field : header.fields) {
    std::cout << ToUtf8(field.name) << ", " << field.type;
    if (field.type == kTypeString) std::cout << ", " << field.size;
    std::cout << '\n';
  }
  std::cout << "FimBD\n";
}

std::string StemOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string file = slash == std::string::npos ? path : path.substr(slash + 1);
  return file.substr(0, file.rfind('.'));
}

}  // namespace

int BdImportSubcommand(const BdImportCall& call) {
  if (call.csv.empty() == call.sqlite.empty())
    return Refuse("diga uma entrada: --csv ENTRADA ou --sqlite ENTRADA");
  if (!EqualsIgnoringCase(Right(call.file, 4), ".Tsa"))
    return Refuse(call.file + ": o nome deve terminar em .Tsa");
  if (access(call.file.c_str(), F_OK) == 0)
    return Refuse(call.file + ": já existe; apague o arquivo ou escolha outro nome");
  const std::string name = FromUtf8Lossy(StemOf(call.file));
  if (name.size() > kNameWidth)
    return Refuse(call.file + ": o nome de um banco de dados tem no máximo 20 caracteres");
  const std::string& from = call.csv.empty() ? call.sqlite : call.csv;
  OpenedSource opened = call.csv.empty() ? OpenSqlite(from, call.table) : OpenCsv(from);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  RowSource& source = *std::get<std::unique_ptr<RowSource>>(opened);

  Progress progress;
  auto planned = Plan(source, progress);
  if (const auto* problem = std::get_if<std::string>(&planned)) return Refuse(from + ": " + *problem);
  TsaHeader& header = std::get<TsaHeader>(planned);
  header.name = name;
  header.created = header.lastRun = Now();
  header.password = FromUtf8Lossy(call.password);

  Replacement fresh(call.file);
  int error = fresh.error();
  if (error == 0) error = WriteRecords(source, header, fresh.descriptor(), progress);
  if (!source.Problem().empty()) return Refuse(from + ": " + source.Problem());
  if (error == 0) error = fresh.Commit(NewFilePermissions());
  if (error != 0) return Refuse(call.file + ": não pode ser gravado: " + SystemReason(error));
  TellBlock(header);
  return kDone;
}

}  // namespace tessera
