#include "recorddb/database_table.h"

#include <utility>

#include "platform/failure.h"
#include "recorddb/slots.h"
#include "text/literal.h"

namespace tessera {

namespace {

template <typename Table>
auto& Checked(Table& table, std::int16_t slot) {
  if (slot < 0 || static_cast<std::size_t>(slot) >= table.size()) FailSubscript();
  return table[static_cast<std::size_t>(slot)];
}

}  // namespace

std::string_view DatabaseField::Name() const {
  return Mid(variable, Find(variable, ".") + 1);
}

DatabaseSlot& RecordContext::Slot(std::int16_t slot) {
  return Checked(DatabaseTable, slot);
}
Order& RecordContext::OrderOf(std::int16_t slot) {
  return Checked(orders, slot);
}
SortedList& RecordContext::ListOf(std::int16_t slot) {
  return Checked(LstOrdem, slot);
}
BinaryFile& RecordContext::FileOf(std::int16_t slot) {
  return run.fileNumbers.Get<BinaryFile>(Slot(slot).fileNumber);
}

void RecordContext::OpenFile(int number, const std::string& path) {
  auto file = BinaryFile::Open(run.host.files, path);
  if (!run.plain) file->KeepFirstPage();
  run.fileNumbers.Put(number, std::move(file));
}

// The number is forgotten: it soon belongs to another file, in which no record of this database must land.
void RecordContext::CloseFile(std::int16_t slot) {
  run.fileNumbers.Close(std::exchange(Slot(slot).fileNumber, 0));
}

std::int16_t FindDatabase(RecordContext& context, std::string_view name) {
  for (std::int16_t slot = 0; slot < kReachableSlots; ++slot) {
    if (EqualsIgnoringCase(context.Slot(slot).name, name)) return slot;
  }
  ShowCritical(
      context.run,
      std::string("Erro: Descritor do banco de dados '"_w).append(name).append("' não encontrado!"_w));
  return -1;
}

Value ReadField(VariableStore& variables, const DatabaseField& field) {
  return field.form ? ReadBy(variables, *field.form, field.variable) : variables.VarRead(field.variable);
}

void WriteField(VariableStore& variables, const DatabaseField& field, Value value) {
  if (field.form) {
    WriteBy(variables, *field.form, field.variable, std::move(value));
  } else {
    variables.VarWrite(field.variable, std::move(value), true);
  }
}

std::int32_t FindField(RecordContext& context, std::string_view name, std::int16_t slot) {
  const auto& fields = context.Slot(slot).fields;
  for (std::size_t row = 0; row < fields.size(); ++row) {
    if (EqualsIgnoringCase(fields[row].Name(), name)) return static_cast<std::int32_t>(row);
  }
  return -1;
}

std::int32_t RecordCount(RecordContext& context, std::int16_t slot) {
  constexpr std::size_t kHead = 20;
  return DecodeDigits(SlotOf(context.FileOf(slot).ReadBlankPadded(1, kHead), tsa::kCount));
}

}  // namespace tessera
