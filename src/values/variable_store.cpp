#include "values/variable_store.h"

#include <algorithm>
#include <limits>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr long kUndeclaredWrite = static_cast<long>(0x80040001);
// More slots of one type than any program needs; beyond it the memory of the machine would answer.
constexpr std::size_t kMaxSlots = 50'000'000;
constexpr std::size_t kMaxTextLength = std::size_t{1} << 29;

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
  return kWords[lastVarType_];
}

const VariableStore::Place* VariableStore::Lookup(std::string_view name) const {
  std::array<char, kNameWidth> upper;
  name = NameWithoutIndex(name);
  if (name.size() > kNameWidth || !MayBeName(name)) return nullptr;
  std::transform(name.begin(), name.end(), upper.begin(), [](char c) { return Upper(c); });
  const auto found = places_.find(std::string_view(upper.data(), name.size()));
  return found == places_.end() ? nullptr : &found->second;
}

bool VariableStore::MayBeName(std::string_view name) const {
  const char first = name.empty() ? '\0' : Upper(name.front());
  return ((lengthsByFirst_[static_cast<unsigned char>(first)] >> name.size()) & 1) != 0;
}

std::int32_t VariableStore::VarFind(std::string_view name) {
  const Place* place = Lookup(name);
  if (place == nullptr) return -1;
  lastVarType_ = place->type;
  return records_[place->type][place->row].first;
}

std::int32_t VariableStore::VarFindByScan(std::string_view name) const {
  const std::string upper = Upper(NameWithoutIndex(name));
  for (const auto& table : records_) {
    for (const Record& record : table) {
      if (Trim(record.name) == upper) return record.first;
    }
  }
  return -1;
}

Value VariableStore::VarRead(std::string_view name) {
  const std::int32_t first = VarFind(name);
  if (first == -1) {
    showCritical_(std::string("Não pode ler "_w).append(name).append(": variável não declarada!"_w));
    return {};
  }
  const std::size_t slot = CheckedSlot(lastVarType_, std::int64_t{first} + SlotIndex(name));
  switch (lastVarType_) {
    case String:
      return texts_[slot];
    case Inteiro:
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
  const std::int64_t slot = std::int64_t{first} + SlotIndex(name);
  switch (lastVarType_) {
    case String: {
      std::string text = std::move(value).ToText();
      if (text.size() > kMaxTextLength) FailMemory();
      texts_[CheckedSlot(String, slot)] = std::move(text);
      break;
    }
    case Inteiro: {
      const std::int32_t number = value.ToInteger();
      integers_[CheckedSlot(Inteiro, slot)] = number;
      break;
    }
    default: {
      const double number = value.ToDouble();
      decimals_[CheckedSlot(Decimal, slot)] = number;
      break;
    }
  }
}

bool VariableStore::AppendText(std::string_view name, std::string_view suffix) {
  const std::int32_t first = VarFind(name);
  if (first == -1 || lastVarType_ != String) return false;
  std::string& text = texts_[CheckedSlot(String, std::int64_t{first} + SlotIndex(name))];
  if (text.size() + suffix.size() > kMaxTextLength) FailMemory();
  text += suffix;
  return true;
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
  return integers_[CheckedSlot(Inteiro, first)];
}

std::size_t VariableStore::CheckedSlot(Type type, std::int64_t slot) const {
  if (slot < 0 || slot >= static_cast<std::int64_t>(SlotCount(type))) FailSubscript();
  return static_cast<std::size_t>(slot);
}

std::size_t VariableStore::SlotCount(Type type) const {
  return type == String ? texts_.size() : type == Inteiro ? integers_.size() : decimals_.size();
}

void VariableStore::ResizeSlots(Type type, std::size_t count) {
  if (count > kMaxSlots) FailMemory();
  switch (type) {
    case String:
      texts_.resize(count);
      break;
    case Inteiro:
      integers_.resize(count);
      break;
    default:
      decimals_.resize(count);
      break;
  }
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
    table = String;
  } else if (type == kTypeInteiro) {
    table = Inteiro;
  } else if (type == kTypeDecimal) {
    table = Decimal;
  } else {
    return;
  }
  const std::size_t nextFree = SlotCount(table) - 1;
  ResizeSlots(table, SlotCount(table) + static_cast<std::size_t>(count));
  Record record{Upper(Left(name, kNameWidth)), static_cast<std::int32_t>(nextFree), count};
  const std::string_view key = Trim(record.name);
  places_.try_emplace(std::string(key), Place{table, records_[table].size()});
  const char initial = key.empty() ? '\0' : key.front();
  lengthsByFirst_[static_cast<unsigned char>(initial)] |= std::uint64_t{1} << key.size();
  records_[table].push_back(std::move(record));
}

void VariableStore::VarRemove(std::string_view name, bool quiet) {
  const std::string upper = Upper(name);
  for (std::size_t t = 0; t < TypeCount; ++t) {
    const Type type = static_cast<Type>(t);
    auto& table = records_[type];
    // FAST: the map knows the first record of a name; a name that it lacks is in no table.
    const auto found = places_.find(std::string_view(upper));
    if (found == places_.end()) break;
    if (found->second.type != type) continue;
    const std::size_t row = found->second.row;
    const Record removed = table[row];

    // Later records move one place down, and their slots by the removed count.
    places_.erase(found);
    table.erase(table.begin() + static_cast<std::ptrdiff_t>(row));
    for (std::size_t later = row; later < table.size(); ++later) {
      table[later].first -= removed.count;
      const auto place = places_.find(Trim(table[later].name));
      if (place == places_.end()) {
        places_.emplace(Trim(table[later].name), Place{type, later});
      } else if (place->second.type == type && place->second.row == later + 1) {
        place->second.row = later;
      }
    }

    // The value slots follow, and the slot behind the last one starts anew.
    const auto shift = [&](auto& slots) {
      const auto from = slots.begin() + removed.first;
      slots.erase(from, from + removed.count);
      slots.back() = {};
    };
    if (type == String) shift(texts_);
    if (type == Inteiro) shift(integers_);
    if (type == Decimal) shift(decimals_);
    return;
  }
  if (!quiet) showCritical_(std::string("RemoveVariável - variável não declarada: "_w).append(name));
}

std::string VariableStore::NameRecord(std::string_view type, std::size_t row) const {
  const std::size_t table = type == kTypeString ? String : type == kTypeInteiro ? Inteiro : Decimal;
  const Record& record = records_[table].at(row);
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
