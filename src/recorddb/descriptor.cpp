#include "recorddb/descriptor.h"

#include <cerrno>
#include <chrono>

#include "image/codec.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "platform/whole_file.h"
#include "prepare/prepared_text.h"
#include "recorddb/header_lock.h"
#include "recorddb/slots.h"
#include "recorddb/tsa_writer.h"
#include "text/date.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

constexpr std::size_t kPlaces = 11;

// A descriptor on its way: the slot that it fills and what is needed until its end.
struct Reading {
  DatabaseSlot& slot;
  std::string password;
  std::string_view variableType;  // of the field before, which a field of an unknown type takes over
  std::int32_t next = 1;
};

std::int16_t Short(std::int32_t number) {
  return Value(number).ToShort();
}

void ReadHeaderLine(RecordContext& context, Reading& reading, const std::vector<std::string>& parts) {
  constexpr Position kNameColumn = 4;  // behind "BD "
  Run& run = context.run;
  reading.slot.name = Mid(EvalText(run, parts[0]).ToText(), kNameColumn);
  reading.slot.folder = EvalText(run, parts[1]).ToText();
  if (!reading.slot.folder.ends_with('\\')) reading.slot.folder += '\\';
  reading.password = EvalText(run, parts[2]).ToText();
  // Only the last level is made, and a failure shows itself when the file is opened.
  const std::string folder = reading.slot.folder.substr(0, reading.slot.folder.size() - 1);
  run.host.files.MakeFolder(run.paths.SystemPath(folder));
}

std::int32_t WidthOf(Run& run, const std::string& type, const std::string& size) {
  if (type == kTypeString) {
    const Value declared = EvalNumber(run, size);
    const double number = declared.IsText() ? LeadingNumber(*declared.AsText()) : declared.ToDouble();
    return RoundToInteger(number + static_cast<double>(kEncodedOverhead));
  }
  if (type == kTypeInteiro || type == kTypeAutoInc) return 9;
  if (type == kTypeDecimal) return 13;
  return 0;
}

void ReadFieldLine(RecordContext& context, Reading& reading, const std::vector<std::string>& parts) {
  Run& run = context.run;
  if (reading.slot.fields.size() == kFieldRows) FailSubscript();
  DatabaseField field;
  field.variable = reading.slot.name + "." + EvalText(run, parts[0]).ToText();
  field.type = EvalText(run, parts[1]).ToText();
  field.width = Short(WidthOf(run, field.type, parts[2]));
  field.position = Short(reading.next);
  reading.next += field.width;
  if (field.type == kTypeAutoInc) {
    reading.variableType = kTypeInteiro;
  } else if (field.type == kTypeString || field.type == kTypeInteiro || field.type == kTypeDecimal) {
    reading.variableType = field.type == kTypeString    ? kTypeString
                           : field.type == kTypeInteiro ? kTypeInteiro
                                                        : kTypeDecimal;
  }
  run.variables.VarCreateScalar(field.variable, reading.variableType);
  field.form = NameForm::Of(run.variables, field.variable);
  reading.slot.fields.push_back(std::move(field));
}

std::string DateAndTime(Clock& clock) {
  const auto now = std::chrono::floor<std::chrono::seconds>(clock.Now());
  return DateText(std::chrono::floor<std::chrono::days>(now)) + " " + TimeText(now);
}

void TellChangedLength(RecordContext& context, const std::string& name) {
  ShowCritical(context.run, std::string("Erro ("_w)
                                .append(name)
                                .append("): O tamanho dos campos do arquivo foram alterados.\r"
                                        "Volte os campos para a estrutura original, ou apague o arquivo\r"
                                        "para que seja criado um novo, com a nova estrutura.\r"
                                        "Atenção: se o arquivo for apagado, os registros já gravados no\r"
                                        "Banco de Dados não poderão ser recuperados !"_w));
}

// True when the file has records of the slot's length; then the date of this run stands in its header. A file
// of another length stays open, under a number that no slot knows: only `AbreBD` opens a slot's file.
bool EnterExistingFile(RecordContext& context, DatabaseSlot& slot, const std::string& path) {
  Run& run = context.run;
  const int number = run.fileNumbers.Free();
  auto file = BinaryFile::Open(run.host.files, path);
  std::string header = file->ReadBlankPadded(1, tsa::kHeaderLength);
  const double length = LeadingNumber(DecodeTrimmed(header, tsa::kRecordLength));
  if (length != slot.recordLength) {
    run.fileNumbers.Put(number, std::move(file));
    TellChangedLength(context, slot.name);
    return false;
  }
  const FileLock lock(*file, run.host.events);
  const std::string now = EncodeText(DateAndTime(run.host.clock), run.host.random);
  if (file->Size() < tsa::kHeaderLength) {
    // A header that was cut gets its blanks back.
    header = file->ReadBlankPadded(1, tsa::kHeaderLength);
    SlotWrite(header, tsa::kLastRun, now);
    file->Write(1, header);
    return true;
  }
  // FAST: of a whole header only these bytes change; the others, which a process beside us may be changing,
  // are not written back.
  SlotWrite(header, tsa::kLastRun, now);
  file->Write(tsa::kLastRun.position, SlotOf(header, tsa::kLastRun));
  return true;
}

void FinishDescriptor(RecordContext& context, Reading& reading) {
  DatabaseSlot& slot = reading.slot;
  slot.recordLength = Short(reading.next - 1);
  const std::string path = context.run.paths.SystemPath(slot.folder + slot.name + ".Tsa");
  // Another program may make the file at the same moment: it is there for the second one.
  FileStore& files = context.run.host.files;
  const int error =
      files.IsTaken(path) ? EEXIST : files.Create(path, NewHeader(context, slot, reading.password));
  if (error != 0 && error != EEXIST) FailSystem(error);
  if (error == EEXIST && !EnterExistingFile(context, slot, path)) return;
  ++context.DatabaseCount;
}

}  // namespace

std::string NewHeader(RecordContext& context, const DatabaseSlot& slot, std::string_view password) {
  TsaHeader header;
  header.name = slot.name;
  header.recordLength = slot.recordLength;
  header.created = header.lastRun = DateAndTime(context.run.host.clock);
  header.password = password;
  for (const DatabaseField& field : slot.fields) {
    header.fields.push_back({.name = std::string(field.Name()),
                             .type = field.type,
                             .size = field.width - static_cast<int>(kEncodedOverhead),
                             .slot = field.Slot()});
  }
  return EncodeTsaHeader(header, context.run.host.random);
}

std::int32_t RunDatabaseBlock(RecordContext& context, std::string_view text, Position position,
                              Position lineEnd, std::int32_t statement) {
  Reading reading{.slot = context.Slot(context.DatabaseCount), .password = {}, .variableType = {}};
  // A slot that a refused descriptor used has nothing left of it.
  reading.slot = {};
  if (static_cast<std::size_t>(context.DatabaseCount) < kOrderedSlots) {
    context.OrderOf(context.DatabaseCount) = Order::None;
    context.ListOf(context.DatabaseCount).Clear();
  }
  for (;;) {
    const std::string_view line = Mid(text, position, lineEnd - position);
    const std::string_view content = Mid(line, kStatementColumn);
    if (content.starts_with("FimBD")) break;
    const auto parts = SplitArguments(context.run, content, kPlaces);
    if (parts[0].starts_with("BD")) {
      ReadHeaderLine(context, reading, parts);
    } else {
      ReadFieldLine(context, reading, parts);
    }
    ++statement;
    position = Find(text, StatementKey(statement), position);
    if (position == 0) {
      statement = 0;
      break;
    }
    lineEnd = Find(text, kCrLf, position);
  }
  FinishDescriptor(context, reading);
  return statement;
}

}  // namespace tessera
