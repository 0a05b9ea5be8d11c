#include "values/variable_store.h"

#include <algorithm>
#include <limits>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr long kUndeclaredWrite = static_cast<long>(0x80040001);

std::string_view NameWithoutIndex(std::string_view name) {
  return name.substr(0, name.find('('));
}

// What stands between the first "(" and the first ")" of an element's name.
std::string_view IndexText(std::string_view name) {
  const Position open = Find(name, "(");
  const Position close = Find(name, ")");
  if (close < open + 1) FailArgument();
  return Mid(name, open + 1, close - open - 1);
}

}  // namespace

VariableStore::VariableStore(std::function<void(std::string_view)> showCritical)
    : showCritical_(std::move(showCritical)) {}

std::string_view VariableStore::LastVarType() const {
  constexpr std::array kWords = {kTypeString, kTypeInteiro, kTypeDecimal};
  return kWords[TableOf(lastVarType_)];
}

const Symbol& VariableStore::Intern(std::string_view name) {
  static const Symbol none;
  name = NameWithoutIndex(name);
  if (name.size() > kNameWidth) return none;
  for (const Frame* frame : frames_) {
    for (std::size_t i = 0; i < frame->size(); ++i) {
      if (EqualsIgnoringCase(name, frame->NameOf(i))) return (*frame)[i];
    }
  }
  Row& row = RowOf(Upper(name));
  row.isHeld = true;
  return row.symbol;
}

VariableStore::Row& VariableStore::RowOf(std::string_view upperName) {
  const auto found = rows_.find(upperName);
  return found != rows_.end() ? *found->second : AddRow(upperName);
}

VariableStore::Row& VariableStore::AddRow(std::string_view upperName) {
  if (freeRows_.empty()) freeRows_.push_back(&ownRows_.emplace_back());
  Row* row = freeRows_.back();
  freeRows_.pop_back();
  *row = {};
  return *(rows_[std::string(upperName)] = row);
}

std::optional<VariableStore::Place> VariableStore::Lookup(std::string_view name) const {
  std::array<char, kNameWidth> upper;
  name = NameWithoutIndex(name);
  if (name.size() > kNameWidth || !MayBeName(name)) return std::nullopt;
  std::transform(name.begin(), name.end(), upper.begin(), [](char c) { return Upper(c); });
  return LookupExact(std::string_view(upper.data(), name.size()));
}

std::optional<VariableStore::Place> VariableStore::LookupExact(std::string_view upperName) const {
  if (cutNames_) return Scan(upperName);
  const auto found = rows_.find(upperName);
  if (found == rows_.end() || found->second->symbol.type == Type::None) return std::nullopt;
  return Place{found->second->symbol.type, found->second->index};
}

// The plain form: the first record of the name, table by table.
std::optional<VariableStore::Place> VariableStore::Scan(std::string_view upperName) const {
  for (const Type type : {Type::String, Type::Inteiro, Type::Decimal}) {
    const auto& table = records_[TableOf(type)];
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const Record& record) { return Trim(record.name) == upperName; });
    if (found != table.end()) return Place{type, static_cast<std::size_t>(found - table.begin())};
  }
  return std::nullopt;
}

bool VariableStore::MayBeName(std::string_view name) const {
  const char first = name.empty() ? '\0' : Upper(name.front());
  return ((lengthsByFirst_[static_cast<unsigned char>(first)] >> name.size()) & 1) != 0;
}

std::int32_t VariableStore::VarFind(std::string_view name) {
  if (IsLocal(name)) RecordFrames();
  const auto place = Lookup(name);
  if (!place) return -1;
  lastVarType_ = place->type;
  return Table(place->type)[place->index].first;
}

std::int32_t VariableStore::VarFindByScan(std::string_view name) const {
  const auto place = Scan(Upper(NameWithoutIndex(name)));
  return place ? records_[TableOf(place->type)][place->index].first : -1;
}

Value VariableStore::VarRead(std::string_view name) {
  const std::int32_t first = VarFind(name);
  if (first == -1) {
    showCritical_(std::string("Não pode ler "_w).append(name).append(": variável não declarada!"_w));
    return {};
  }
  const std::size_t slot = CheckedSlot(lastVarType_, std::int64_t{first} + SlotIndex(name));
  switch (lastVarType_) {
    case Type::String:
      return texts_[slot];
    case Type::Inteiro:
      return integers_[slot];
    default:
      return decimals_[slot];
  }
}

void VariableStore::VarWrite(std::string_view name, Value value, bool mustExist) {
  const std::int32_t first = VarFind(name);
  if (first == -1) {
    if (!mustExist) return;
    throw RunFailure(
        kUndeclaredWrite,
        std::string("Não pode atribuir valor para "_w).append(name).append(": variável não declarada!"_w));
  }
  Write(lastVarType_, std::int64_t{first} + SlotIndex(name), std::move(value));
}

void VariableStore::WriteTo(const Symbol& symbol, Value&& value) {
  Write(symbol.type, symbol.first, std::move(value));
}

void VariableStore::Write(Type type, std::int64_t slot, Value&& value) {
  switch (type) {
    case Type::String: {
      std::string text = std::move(value).ToText();
      if (text.size() > kMaxTextLength) FailMemory();
      texts_[CheckedSlot(Type::String, slot)] = std::move(text);
      break;
    }
    case Type::Inteiro: {
      const std::int32_t number = value.ToInteger();
      integers_[CheckedSlot(Type::Inteiro, slot)] = number;
      break;
    }
    default: {
      const double number = value.ToDouble();
      decimals_[CheckedSlot(Type::Decimal, slot)] = number;
      break;
    }
  }
}

std::int32_t VariableStore::SlotIndex(std::string_view name) {
  if (name.find('(') == std::string_view::npos) return 0;
  const std::string_view index = IndexText(name);
  if (const auto number = WholeNumber(index)) return RoundToInteger(*number);
  return VarIndexValue(index);
}

std::int32_t VariableStore::VarIndexValue(std::string_view name) {
  const Type saved = lastVarType_;
  const std::int32_t first = VarFind(name);
  lastVarType_ = saved;
  if (first == -1) {
    showCritical_(std::string("Não pode ler "_w).append(name).append(": variável não declarada!"_w));
    return 0;
  }
  // KEPT: the "Inteiro" table is read whatever table the name was found in
  // (VariableStoreTest.AnIndexIsReadFromTheIntegerTable).
  return integers_[CheckedSlot(Type::Inteiro, first)];
}

std::size_t VariableStore::CheckedSlot(Type type, std::int64_t slot) const {
  if (slot < 0 || slot >= static_cast<std::int64_t>(SlotCount(type))) FailSubscript();
  return static_cast<std::size_t>(slot);
}

std::size_t VariableStore::SlotCount(Type type) const {
  return type == Type::String ? texts_.size() : type == Type::Inteiro ? integers_.size() : decimals_.size();
}

void VariableStore::ResizeSlots(Type type, std::size_t count) {
  if (count > kMaxSlots) FailMemory();
  WithSlots(type, [count](auto& slots) { slots.resize(count); });
}

void VariableStore::VarCreateScalar(std::string_view name, std::string_view type) {
  Create(name, type, 1);
}

void VariableStore::VarCreateArray(std::string_view nameWithCount, std::string_view type) {
  const auto count = WholeNumber(IndexText(nameWithCount));
  const std::int32_t elements = count ? RoundToInteger(*count) : 0;
  if (elements < 0) FailSubscript();
  Create(NameWithoutIndex(nameWithCount), type, elements);
}

void VariableStore::Create(std::string_view name, std::string_view type, std::int32_t count) {
  if (VarFind(name) != -1) return;
  Type table;
  if (type == kTypeString) {
    table = Type::String;
  } else if (type == kTypeInteiro) {
    table = Type::Inteiro;
  } else if (type == kTypeDecimal) {
    table = Type::Decimal;
  } else {
    return;
  }
  RecordFrames();
  const std::size_t nextFree = SlotCount(table) - 1;
  ResizeSlots(table, SlotCount(table) + static_cast<std::size_t>(count));
  AddRecord(name, table, static_cast<std::int32_t>(nextFree), count, nullptr);
}

// The row is a frame's, or none: then the name gets one.
void VariableStore::AddRecord(std::string_view name, Type table, std::int32_t first, std::int32_t count,
                              Row* row) {
  Record record{Upper(Left(name, kNameWidth)), first, count, nullptr};
  const std::string_view key = Trim(record.name);
  const char initial = key.empty() ? '\0' : key.front();
  lengthsByFirst_[static_cast<unsigned char>(initial)] |= std::uint64_t{1} << key.size();
  cutNames_ = cutNames_ || name.size() > kNameWidth;
  symbolsTellAll_ = symbolsTellAll_ && !cutNames_ && initial != '"';
  if (row == nullptr) {
    row = &RowOf(key);
  } else {
    rows_[std::string(key)] = row;
  }
  if (row->symbol.type == Type::None || row->symbol.first == first) {
    row->symbol.type = table;
    row->symbol.first = first;
    row->index = Table(table).size();
    record.row = row;
  }
  Table(table).push_back(std::move(record));
}

void VariableStore::VarRemove(std::string_view name, bool quiet) {
  RecordFrames();
  const std::string upper = Upper(name);
  const auto place = LookupExact(upper);
  if (!place) {
    if (!quiet) showCritical_(std::string("RemoveVariável - variável não declarada: "_w).append(name));
    return;
  }
  auto& table = Table(place->type);
  const Record removed = table[place->index];
  if (removed.row != nullptr) {
    removed.row->symbol.type = Type::None;
    // A row that nobody holds goes with its name, or the names of calls would pile up.
    if (!removed.row->isHeld) {
      if (!removed.row->symbol.isLocal) freeRows_.push_back(removed.row);
      rows_.erase(upper);
    }
  }

  // Later records move one place down, and their slots by the removed count.
  table.erase(table.begin() + static_cast<std::ptrdiff_t>(place->index));
  for (std::size_t later = place->index; later < table.size(); ++later) {
    Record& record = table[later];
    record.first -= removed.count;
    if (record.row == nullptr) continue;
    record.row->symbol.first = record.first;
    record.row->index = later;
  }

  // The value slots follow, and the slot behind the last one starts anew.
  const auto shift = [&](auto& slots) {
    const auto from = slots.begin() + removed.first;
    slots.erase(from, from + removed.count);
    slots.back() = {};
  };
  WithSlots(place->type, shift);
}

std::string VariableStore::NameRecord(std::string_view type, std::size_t row) const {
  const Record& record = records_[TableOf(TypeOf(type))].at(row);
  std::string text(70, ' ');
  const auto overlay = [&](std::size_t column, std::string_view part) {
    text.replace(column - 1, part.size(), part);
  };
  overlay(1, record.name);
  overlay(51, std::to_string(record.first));
  overlay(61, std::to_string(record.count));
  return text;
}

}  // namespace tessera
