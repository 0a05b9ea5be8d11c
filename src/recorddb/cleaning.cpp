#include "recorddb/cleaning.h"

#include "commands/arguments.h"
#include "image/codec.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "recorddb/header_lock.h"
#include "recorddb/record_commands.h"
#include "recorddb/slots.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

// Copies the live records, the first field renumbered where it is an AutoInc, and returns how many there are.
std::int32_t CopyLiveRecords(RecordContext& context, const DatabaseSlot& slot, const BinaryFile& from,
                             BinaryFile& to) {
  const std::string header = from.ReadBlankPadded(1, tsa::kHeaderLength);
  to.Write(1, header);
  const std::int32_t count = DecodeDigits(SlotOf(header, tsa::kCount));
  const std::int32_t length = DecodeDigits(Trim(SlotOf(header, tsa::kRecordLength)));
  const std::string type = Upper(DecodeTrimmed(header, tsa::FieldType(0)));
  if (length < 0) FailArgument();
  std::int32_t written = 0;
  for (std::int32_t p = 0; p < count; ++p) {
    const auto place = [&](std::int32_t record) {
      return tsa::RecordPosition(static_cast<std::uint64_t>(length), static_cast<std::uint64_t>(record));
    };
    std::string record = from.ReadBlankPadded(place(p), static_cast<std::size_t>(length));
    if (IsDeleted(slot, record)) continue;
    if (type == "AUTOINC") {
      SlotWrite(record, slot.fields.front().Slot(), EncodeText(BytesOf(written), context.run.host.random));
    }
    to.Write(place(written), record);
    ++written;
  }
  return written;
}

// KEPT: the header is written back with all the bytes that were read, so that its last one, which belongs to
// the first record as well, comes from the old file (Cleaning.TheHeadersLastByteComesFromTheOldFile).
void WriteCleanHeader(RecordContext& context, const BinaryFile& from, BinaryFile& to, std::int32_t written) {
  std::string header = from.ReadBlankPadded(1, tsa::kHeaderLength);
  SlotWrite(header, tsa::kCount, std::string(tsa::kCount.width, tsa::kBlank));
  SlotWrite(header, tsa::kCount, EncodeText(std::to_string(written), context.run.host.random));
  to.Write(1, header);
}

// Puts the temporary file in the database file's place in one step, so that at no moment both are gone.
// Failure 70 while this program still has the database file open.
void TakePlace(RecordContext& context, const std::string& temporary, const std::string& database) {
  const bool stillOpen =
      context.run.fileNumbers.AnyOf<BinaryFile>([&](const BinaryFile& file) { return file.IsAt(database); });
  if (stillOpen) Fail(70);
  if (const int error = context.run.host.files.TakePlace(temporary, database)) FailSystem(error);
}

void CleanInto(RecordContext& context, const DatabaseSlot& slot, const std::string& temporary,
               const std::string& database, BinaryFile& to) {
  const auto from = BinaryFile::Open(context.run.host.files, database);
  const FileLock lock(*from, context.run.host.events);
  const std::int32_t written = CopyLiveRecords(context, slot, *from, to);
  WriteCleanHeader(context, *from, to, written);
  to.Sync();
  TakePlace(context, temporary, database);
}

// The databases whose file is open under a number.
std::vector<DatabaseSlot*> DatabasesUnder(RecordContext& context, int number) {
  std::vector<DatabaseSlot*> databases;
  for (DatabaseSlot& slot : context.DatabaseTable) {
    if (slot.fileNumber == number) databases.push_back(&slot);
  }
  return databases;
}

void TellOtherCleaning(RecordContext& context, const DatabaseSlot& slot) {
  ShowCritical(context.run, std::string("Há outro usuário efetuando a rotina de limpeza !\r"
                                        "Se tiver certeza que não há nenhum usuário efetuando esta rotina,\r"
                                        "apague o arquivo "_w)
                                .append(slot.folder)
                                .append("Temp.Tsa"));
}

Value LimpaBD(RecordContext& context, const WordCall& call) {
  Run& run = call.run;
  const std::string name = Arguments(call).Text("banco");
  const std::int16_t number = FindDatabase(context, name);
  const DatabaseSlot& slot = context.Slot(number);
  const bool whole = EqualsIgnoringCase(Right(name, 3), "TSA");
  const std::string database = context.run.paths.SystemPath(slot.folder + name + (whole ? "" : ".Tsa"));
  const std::string temporary = context.run.paths.SystemPath(slot.folder + "Temp.Tsa");

  // KEPT: the slot's number is taken for the file number (Cleaning.ClosesTheFileWhoseNumberIsTheSlots).
  const auto readers = DatabasesUnder(context, number);
  run.fileNumbers.Close(number);
  for (DatabaseSlot* reader : readers) reader->fileNumber = 0;
  if (run.host.files.IsTaken(temporary)) {
    TellOtherCleaning(context, slot);
    return {};
  }
  if (const int error = run.host.files.Open(database, OpenAs::Read).error) FailSystem(error);
  const auto to = BinaryFile::Create(run.host.files, temporary);
  // OPEN: a cleaning that fails takes its temporary file with it; the old file is whole, and a file that
  // stays would forbid every later cleaning.
  if (const auto failure = Guard([&] { CleanInto(context, slot, temporary, database, *to); })) {
    run.host.files.Remove(temporary);
    throw *failure;
  }
  // OPEN: there is no file number 0, so the database of the first slot is left closed.
  if (number < FileNumbers::kFirst) return {};
  context.OpenFile(number, database);
  for (DatabaseSlot* reader : readers) reader->fileNumber = number;
  return {};
}

}  // namespace

void BindCleaningCommand(CommandTable& table, RecordContext& context) {
  constexpr RowOn<RecordContext> kRows[] = {{"LimpaBD", LimpaBD}};
  Bind(table, kRows, context);
}

}  // namespace tessera
