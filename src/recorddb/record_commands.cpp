#include "recorddb/record_commands.h"

#include "commands/arguments.h"
#include "image/codec.h"
#include "platform/failure.h"
#include "platform/file_store.h"
#include "recorddb/header_lock.h"
#include "recorddb/order_commands.h"
#include "recorddb/slots.h"
#include "text/literal.h"

namespace tessera {

namespace {

// The slot of the database that a command names, or -1 behind the message for one that is not there.
std::int16_t SlotNamed(RecordContext& context, const ArgumentView& arguments) {
  std::string own;
  return FindDatabase(context, arguments.TextView("banco", own));
}

void ShowAtStatement(RecordContext& context, std::string_view text) {
  ShowCritical(context.run, SourcePositionText(context.run).append("\r").append(text));
}

std::uint64_t PositionOf(const DatabaseSlot& slot, std::int32_t record) {
  return tsa::RecordPosition(static_cast<std::uint64_t>(slot.recordLength),
                             static_cast<std::uint64_t>(record));
}

// The physical position in the last six characters of a list entry; failure 13 where they are no number.
std::int32_t PhysicalPosition(RecordContext& context, std::int16_t slot, std::int32_t place) {
  const auto entry = context.ListOf(slot).At(static_cast<std::size_t>(place));
  return Value(Right(entry, kPositionDigits)).ToInteger();
}

FileFinder FinderOf(RecordContext& context, std::int16_t slot) {
  return [&context, slot]() -> BinaryFile& { return context.FileOf(slot); };
}

// A record of the values in the field variables. `autoInc` gives the value of an AutoInc field.
template <typename AutoInc>
std::string EncodeRecord(RecordContext& context, std::int16_t number, std::string_view command,
                         AutoInc autoInc) {
  Run& run = context.run;
  const DatabaseSlot& slot = context.Slot(number);
  std::string record(static_cast<std::size_t>(slot.recordLength), tsa::kBlank);
  // By row: a message box lets events run, and these may run a descriptor into the slot of a refused one.
  for (std::size_t row = 0; row < slot.fields.size(); ++row) {
    const DatabaseField& field = slot.fields[row];
    std::string plain;
    if (field.type == kTypeAutoInc) {
      plain = BytesOf(std::int32_t{autoInc()});
    } else if (field.type == kTypeInteiro) {
      plain = BytesOf(ReadField(run.variables, field).ToInteger());
    } else if (field.type == kTypeDecimal) {
      plain = BytesOf(ReadField(run.variables, field).ToDouble());
    } else if (field.type == kTypeString) {
      plain = ReadField(run.variables, field).ToText();
      if (plain.size() + kEncodedOverhead > static_cast<std::size_t>(field.width)) {
        ShowAtStatement(context, std::string(command)
                                     .append(": o tamanho do campo '"_w)
                                     .append(field.variable)
                                     .append("'\ré menor do que o tamanho dos dados atribuídos ao mesmo!"_w));
        continue;
      }
    } else {
      continue;
    }
    SlotWrite(record, field.Slot(), EncodeText(plain, run.host.random));
  }
  return record;
}

Value AbreBD(RecordContext& context, const WordCall& call) {
  Run& run = context.run;
  const Arguments arguments(call);
  const std::string database = arguments.Text("banco");
  const std::int16_t number = FindDatabase(context, database);
  if (number == -1) return {};
  DatabaseSlot& slot = context.Slot(number);
  const std::string name = slot.folder + database + ".Tsa";
  const std::string path = context.run.paths.SystemPath(name);
  int unseen = 0;
  if (!run.host.files.IsFile(path, unseen) && !run.host.files.IsFolder(path)) {
    ShowCritical(run, std::string("Erro AbreBD - Arquivo não existente: "_w).append(name));
    return {};
  }
  slot.fileNumber = run.fileNumbers.Free();
  context.OpenFile(slot.fileNumber, path);
  const std::string header = context.FileOf(number).ReadBlankPadded(1, tsa::kHeaderLength);
  const std::string password = arguments.Text("senha");
  if (DecodeTrimmed(header, tsa::kPassword) != password) {
    ShowAtStatement(context, std::string("Erro na abertura do banco de dados '"_w)
                                 .append(database)
                                 .append("': Senha incorreta!"_w));
    context.CloseFile(number);
  }
  return {};
}

Value FechaBD(RecordContext& context, const WordCall& call) {
  context.CloseFile(SlotNamed(context, Arguments(call)));
  return {};
}

Value AdicionaRegistro(RecordContext& context, const WordCall& call) {
  const std::int16_t number = SlotNamed(context, Arguments(call));
  if (number == -1) return {};
  const DatabaseSlot& slot = context.Slot(number);
  const std::string record =
      EncodeRecord(context, number, "AdicionaRegistro", [&] { return RecordCount(context, number); });
  const bool ordered = context.PositionsAreOrdered(number);
  std::int32_t count = 0;
  {
    HeaderStep step(FinderOf(context, number), context.run.host.events);
    count = step.Count();
    // The record's place is blank before the count tells of it, so that a sudden end leaves a blank record.
    step.file().Write(PositionOf(slot, count), std::string(record.size(), tsa::kBlank));
    step.SetBusy();
    step.SetFree(count + 1, context.run.host.random);
  }
  if (ordered) UpdateOrderList(context, count, record, number, ListChange::Add);
  context.FileOf(number).Write(PositionOf(slot, count), record);
  return {};
}

// The count of the file, found with its lock byte free.
std::int32_t WaitForCount(RecordContext& context, std::int16_t slot) {
  const HeaderStep step(FinderOf(context, slot), context.run.host.events);
  return step.Count();
}

// A position equal to the count passes.
bool IsPosition(std::int32_t position, std::int32_t count) {
  return position >= 0 && position <= count;
}

// Writes a record over the one at `position`, once the lock byte is free. Under an order the entry at one of
// the list's places is replaced: at the count, or at the position.
enum class ReplacedPlace { Count, Position };
void Overwrite(RecordContext& context, std::int16_t number, std::int32_t position, std::string_view record,
               ReplacedPlace replaced, std::string_view refusal) {
  const bool ordered = context.PositionsAreOrdered(number);
  const std::int32_t count = WaitForCount(context, number);
  if (!IsPosition(position, count)) {
    ShowCritical(context.run, refusal);
    return;
  }
  std::int32_t physical = position;
  if (ordered) {
    physical = PhysicalPosition(context, number, position);
    UpdateOrderList(context, replaced == ReplacedPlace::Count ? count : position, record, number,
                    ListChange::Replace);
  }
  context.FileOf(number).Write(PositionOf(context.Slot(number), physical), record);
}

Value AtualizaRegistro(RecordContext& context, const WordCall& call) {
  const Arguments arguments(call);
  const std::int16_t number = SlotNamed(context, arguments);
  context.Slot(number);
  const std::int32_t position = arguments.Number("posição").ToInteger();
  const std::string record = EncodeRecord(context, number, "AtualizaRegistro", [&] { return position; });
  // KEPT: the count, and not the position, is taken for the list's place
  // (RecordPrograms.UpdatingTakesTheCountForItsPlaceInTheList).
  Overwrite(context, number, position, record, ReplacedPlace::Count,
            "Não pode atualizar registro: posição inválida !"_w);
  return {};
}

Value ExcluiRegistro(RecordContext& context, const WordCall& call) {
  const Arguments arguments(call);
  const std::int16_t number = SlotNamed(context, arguments);
  context.Slot(number);
  const std::int32_t position = arguments.Number("posição").ToInteger();
  Overwrite(context, number, position, DeletedRecord(context, number), ReplacedPlace::Position,
            "Não pode excluir registro: posição inválida !"_w);
  return {};
}

Value LeRegistroCommand(RecordContext& context, const WordCall& call) {
  const Arguments arguments(call);
  const std::int16_t number = SlotNamed(context, arguments);
  context.Slot(number);
  return LeRegistro(context, number, arguments.Number("posição").ToInteger());
}

Value TotalRegistrosBD(RecordContext& context, const WordCall& call) {
  const std::int16_t number = SlotNamed(context, Arguments(call));
  if (number == -1) return {};
  return RecordCount(context, number);
}

}  // namespace

void ClearVariables(RecordContext& context, const DatabaseSlot& slot) {
  for (const DatabaseField& field : slot.fields) {
    WriteField(context.run.variables, field, field.type == kTypeString ? Value(""_w) : Value(0));
  }
}

Value FieldValue(std::string_view type, std::string plain) {
  if (type == kTypeString) return plain;
  if (type == kTypeDecimal) return DoubleOf(plain);
  return IntegerOf(plain);
}

std::string DecodeRecord(RecordContext& context, const DatabaseSlot& slot, std::string_view record) {
  VariableStore& variables = context.run.variables;
  std::string text;
  text.reserve(static_cast<std::size_t>(std::max<std::int16_t>(slot.recordLength, 0)));
  for (const DatabaseField& field : slot.fields) {
    const std::size_t end = text.size() + field.Slot().width;
    WriteField(variables, field, FieldValue(field.type, DecodeText(SlotOf(record, field.Slot()))));
    text += ReadField(variables, field).ToText();
    text.resize(end, ' ');
  }
  return text;
}

std::string DeletedRecord(RecordContext& context, std::int16_t number) {
  const DatabaseSlot& slot = context.Slot(number);
  std::string record(static_cast<std::size_t>(slot.recordLength), tsa::kBlank);
  if (slot.fields.empty()) FailSubscript();
  SlotWrite(record, slot.fields.front().Slot(), EncodeText(kDeletedMark, context.run.host.random));
  return record;
}

bool IsDeleted(const DatabaseSlot& slot, std::string_view record) {
  if (slot.fields.empty()) FailSubscript();
  const std::string_view first = SlotOf(record, slot.fields.front().Slot());
  // FAST: another length can't be the mark's, and needs no decoding to tell so.
  if (IsDecodable(first) && EncodedCount(first) != kDeletedMark.size() + 1) return false;
  return DecodeText(first) == kDeletedMark;
}

std::string LeRegistro(RecordContext& context, std::int16_t number, std::int32_t position) {
  const DatabaseSlot& slot = context.Slot(number);
  const bool ordered = context.PositionsAreOrdered(number);
  std::int32_t count = 0;
  {
    HeaderStep step(FinderOf(context, number), context.run.host.events);
    count = step.Count();
    step.SetBusy();
    step.SetFree();
  }
  if (!IsPosition(position, count)) {
    ShowAtStatement(context, "Não pode ler registro: posição inválida !"_w);
    return {};
  }
  std::int32_t physical = position;
  if (ordered) {
    const auto failure = Guard([&] { physical = PhysicalPosition(context, number, position); });
    if (failure) {
      const auto entry = context.ListOf(number).At(static_cast<std::size_t>(position));
      const std::string shown = NumberText(LeadingNumber(Right(entry, kPositionDigits)));
      ShowAtStatement(
          context, std::string("Posição inválida:"_w)
                       .append(shown.starts_with('-') ? "" : " ")
                       .append(shown)
                       .append("\rPosições variam de 0 (zero) ao total de registros do arquivo menos um."_w));
      return {};
    }
  }
  const std::string record = context.FileOf(number).ReadBlankPadded(
      PositionOf(slot, physical), static_cast<std::size_t>(slot.recordLength));
  if (IsDeleted(slot, record)) {
    ClearVariables(context, slot);
    return {};
  }
  return Quote(DecodeRecord(context, slot, record));
}

void BindRecordCommands(CommandTable& table, RecordContext& context) {
  constexpr RowOn<RecordContext> kRows[] = {
      {"AbreBD", AbreBD},
      {"FechaBD", FechaBD},
      {"AdicionaRegistro", AdicionaRegistro},
      {"AtualizaRegistro", AtualizaRegistro},
      {"ExcluiRegistro", ExcluiRegistro},
      {"LeRegistro", LeRegistroCommand},
      {"TotalRegistrosBD", TotalRegistrosBD},
  };
  Bind(table, kRows, context);
}

}  // namespace tessera
