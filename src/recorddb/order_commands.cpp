#include "recorddb/order_commands.h"

#include <algorithm>
#include <optional>

#include "commands/arguments.h"
#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/comparable_text.h"
#include "recorddb/record_commands.h"
#include "recorddb/slots.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

constexpr std::int32_t kMostRecords = 999'999;  // that the count's slot can hold

std::string PositionDigits(std::int32_t position) {
  return std::string(Right(ZeroFilled(position, kPositionDigits), kPositionDigits));
}

// The rows of the database's index fields, or nothing behind the message for the first one that it lacks.
std::optional<std::vector<DatabaseField>> ResolveIndexFields(RecordContext& context, std::int16_t slot) {
  std::vector<DatabaseField> fields;
  for (const std::string& name : context.Slot(slot).indexFields) {
    const std::int32_t row = FindField(context, name, slot);
    if (row == -1) {
      ShowCritical(context.run, SourcePositionText(context.run)
                                    .append("\r")
                                    .append("Campo de índice não encontrado no arquivo: "_w)
                                    .append(name));
      return std::nullopt;
    }
    fields.push_back(context.Slot(slot).fields[static_cast<std::size_t>(row)]);
  }
  return fields;
}

// KEPT: the cut is made in whatever text is handed over. Behind `OrdemBD` that is the plain text with its
// opening quote, so that every key begins one character to the left of its field; behind the other record
// commands it is the stored record (RecordPrograms.KeysBeginOneCharacterToTheLeft).
std::string EntryOf(const std::vector<DatabaseField>& fields, std::string_view record,
                    std::int32_t physical) {
  std::size_t length = kPositionDigits;
  for (const DatabaseField& field : fields) length += field.Slot().width;
  std::string entry;
  entry.reserve(length);
  for (const DatabaseField& field : fields) entry += SlotOf(record, field.Slot());
  return entry.append(PositionDigits(physical));
}

// The rebuilding of one list: an entry for each record, the field variables left with the last one read.
class Rebuild {
 public:
  Rebuild(RecordContext& context, std::int16_t slot, const std::vector<DatabaseField>& indexFields)
      : context_(context), slot_(slot), indexFields_(indexFields), count_(RecordCount(context, slot)) {}

  void Run() {
    entries_.reserve(static_cast<std::size_t>(std::clamp(count_, 0, kMostRecords)));
    const std::int32_t next = context_.quickOrders && VariablesHaveTheirTypes() ? ReadInPieces() : 0;
    const auto failure = Guard([&] { ReadPlainly(next); });
    context_.ListOf(slot_).Fill(std::move(entries_));
    if (failure) throw *failure;
  }

 private:
  void ReadPlainly(std::int32_t from) {
    for (std::int32_t k = from; k < count_; ++k) {
      context_.OrderRebuildFlag = true;
      const std::string text = LeRegistro(context_, slot_, k);
      context_.OrderRebuildFlag = false;
      Enter(text, k);
    }
  }

  // FAST: reads many records at once and keeps the fields' texts without the variables between. The last
  // record, or the first that does not decode with the one before it, is read again plainly, so that
  // variables and failures come out the same. Returns where plain reading goes on.
  std::int32_t ReadInPieces() {
    constexpr std::int32_t kPieceBytes = 1 << 20;
    const DatabaseSlot& slot = context_.Slot(slot_);
    if (slot.recordLength <= 0) return 0;
    const auto length = static_cast<std::size_t>(slot.recordLength);
    const std::int32_t perPiece = std::max(1, kPieceBytes / slot.recordLength);
    std::int32_t good = 0;
    for (bool decodes = true; decodes && good < count_;) {
      const auto records = static_cast<std::size_t>(std::min(perPiece, count_ - good));
      const std::string piece = context_.FileOf(slot_).ReadBlankPadded(
          tsa::RecordPosition(length, static_cast<std::uint64_t>(good)), records * length);
      for (std::size_t i = 0; decodes && i < records; ++i) {
        decodes = EnterQuickly(slot, std::string_view(piece).substr(i * length, length), good);
        if (decodes) ++good;
      }
    }
    if (good == 0) return 0;
    entries_.pop_back();
    return good - 1;
  }

  // False for a record that does not decode. Fields that no key is cut from are only looked at for that.
  bool EnterQuickly(const DatabaseSlot& slot, std::string_view record, std::int32_t k) {
    for (const DatabaseField& field : slot.fields) {
      if (!IsDecodable(SlotOf(record, field.Slot())))
        return IsDecodable(SlotOf(record, slot.fields[0].Slot())) && IsDeleted(slot, record) &&
               EnterDeleted(k);
    }
    if (IsDeleted(slot, record)) return EnterDeleted(k);
    text_ = '"';
    for (const DatabaseField& field : slot.fields) {
      const std::size_t end = text_.size() + field.Slot().width;
      if (IsCut(field)) text_ += FieldValue(field.type, DecodeText(SlotOf(record, field.Slot()))).ToText();
      text_.resize(end, ' ');
    }
    text_ += '"';
    Enter(text_, k);
    return true;
  }

  bool EnterDeleted(std::int32_t k) {
    Enter({}, k);
    return true;
  }

  // True when a key takes characters of the field's text, which stands one behind its position.
  bool IsCut(const DatabaseField& field) const {
    return std::any_of(indexFields_.begin(), indexFields_.end(), [&](const DatabaseField& index) {
      return index.position <= field.position + field.width &&
             field.position + 1 < index.position + index.width;
    });
  }

  // True when every field's variable has the type that its field declared, so that a value read back from it
  // is the value written.
  bool VariablesHaveTheirTypes() {
    VariableStore& variables = context_.run.variables;
    for (const DatabaseField& field : context_.Slot(slot_).fields) {
      const std::string_view type = field.type == kTypeAutoInc ? kTypeInteiro : std::string_view(field.type);
      if (variables.VarFind(field.variable) == -1 || variables.LastVarType() != type) return false;
    }
    return true;
  }

  void Enter(std::string_view text, std::int32_t k) { entries_.push_back(EntryOf(indexFields_, text, k)); }

  RecordContext& context_;
  std::int16_t slot_;
  const std::vector<DatabaseField>& indexFields_;
  std::int32_t count_;
  std::vector<std::string> entries_;
  std::string text_;  // of one record, kept for its room
};

Value OrdemBD(RecordContext& context, const WordCall& call) {
  const Arguments arguments(call);
  const std::int16_t number = FindDatabase(context, arguments.Text("banco"));
  if (number == -1) return {};
  context.ListOf(number).Clear();
  if (EqualsIgnoringCase(arguments.Text("campo"), "SEQUENCIAL")) {
    context.OrderOf(number) = Order::Sequencial;
    return {};
  }
  context.OrderOf(number) = Order::Indice;
  auto& indexFields = context.Slot(number).indexFields;
  indexFields.clear();
  for (const std::string& field : arguments.List("campo")) {
    if (indexFields.size() == kIndexFields) FailSubscript();
    indexFields.push_back(EvalText(call.run, field).ToText());
  }
  // The first empty one ends them, also where it came out empty.
  indexFields.erase(std::find(indexFields.begin(), indexFields.end(), ""), indexFields.end());
  if (const auto fields = ResolveIndexFields(context, number)) Rebuild(context, number, *fields).Run();
  return {};
}

// The binary search of `Procure` in one list.
class Search {
 public:
  Search(const SortedList& list, std::string_view key, std::int32_t count)
      : list_(list), key_(Trim(key)), length_(key.size()), count_(count) {}

  std::int32_t Find(std::string_view mode) const {
    std::int32_t low = -1;
    std::int32_t high = count_;
    while (high != low + 1) {
      const std::int32_t middle = (high + low) / 2;
      const int order = Compare(middle);
      if (order == 0) return Walk(middle, mode);
      (order < 0 ? high : low) = middle;
    }
    if (mode != "PROXIMO") return -1;
    return high < count_ ? high : high - 1;
  }

 private:
  // Order of the key against the entry at a place, of which only as many characters count as the key has.
  int Compare(std::int32_t place) const {
    const std::string_view entry = list_.At(static_cast<std::size_t>(place));
    return CompareComparable(key_, Unquote(Left(entry, length_)));
  }

  std::int32_t Walk(std::int32_t place, std::string_view mode) const {
    if (mode == "PRIMEIRO") {
      while (place >= 0 && Compare(place) == 0) --place;
      return place + 1;
    }
    if (mode == "ULTIMO") {
      while (place <= count_ && Compare(place) == 0) ++place;
      return place - 1;
    }
    return place;
  }

  const SortedList& list_;
  std::string_view key_;
  std::size_t length_;  // of the key with its blanks: so many characters of an entry count
  std::int32_t count_;
};

Value Procure(RecordContext& context, const WordCall& call) {
  Run& run = call.run;
  const Arguments arguments(call);
  const std::int16_t number = FindDatabase(context, arguments.Text("banco"));
  const std::string mode = Upper(Trim(arguments.Text("modo")));
  const DatabaseSlot& slot = context.Slot(number);
  std::string key;
  const auto values = arguments.List("valor");
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i >= kIndexFields) FailSubscript();
    std::string value = EvalText(run, values[i]).ToText();
    if (i >= slot.indexFields.size()) {
      ShowCritical(run, SourcePositionText(run).append("\r").append(
                            "Erro no comando Procure!\r"
                            "Verifique se você definiu a ordem do banco de dados com o comando OrdemBD!"_w));
      return 0;
    }
    const std::int32_t row = FindField(context, slot.indexFields[i], number);
    if (row == -1) FailSubscript();
    value.resize(
        static_cast<std::size_t>(std::max<std::int16_t>(slot.fields[static_cast<std::size_t>(row)].width, 0)),
        ' ');
    key += value;
  }
  return Search(context.ListOf(number), key, RecordCount(context, number)).Find(mode);
}

}  // namespace

void UpdateOrderList(RecordContext& context, std::int32_t position, std::string_view record,
                     std::int16_t slot, ListChange change) {
  SortedList& list = context.ListOf(slot);
  std::int32_t physical = position;
  if (change == ListChange::Replace) {
    const auto place = static_cast<std::size_t>(position);
    physical = Value(Right(list.At(place), kPositionDigits)).ToInteger();
    list.Remove(place);
  }
  const auto fields = ResolveIndexFields(context, slot);
  if (!fields) return;
  list.Add(EntryOf(*fields, record, physical));
}

void BindOrderCommands(CommandTable& table, RecordContext& context) {
  constexpr RowOn<RecordContext> kRows[] = {{"OrdemBD", OrdemBD}, {"Procure", Procure}};
  Bind(table, kRows, context);
}

}  // namespace tessera
