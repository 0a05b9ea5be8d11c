// The one store of all values of a running program: three pairs of tables, one pair for each type word, and
// no scopes. A variable is its name; names are found blind to case.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "language/types.h"
#include "values/value.h"

namespace tessera {

class VariableStore {
 public:
  // `showCritical` shows a message box of critical style.
  explicit VariableStore(std::function<void(std::string_view)> showCritical);

  // First value index of the variable, or -1. What stands from the first "(" on is no part of the name.
  // A hit sets `LastVarType`.
  std::int32_t VarFind(std::string_view name);

  // The value of a variable or of an array's element. An undeclared name shows a box and reads as empty;
  // a slot outside the value table is failure 9.
  Value VarRead(std::string_view name);

  // Stores the value converted to the variable's type (failures 13 and 6). An undeclared name is an error
  // with number 0x80040001 when `mustExist`, else nothing happens.
  void VarWrite(std::string_view name, Value value, bool mustExist);

  // Adds to the end of a "String" variable's text: what writing its text joined with `suffix` would store.
  // False, and nothing done, for any other variable.
  bool AppendText(std::string_view name, std::string_view suffix);

  // One variable or array of a type word; an existing name or any other word creates nothing.
  void VarCreateScalar(std::string_view name, std::string_view type);
  void VarCreateArray(std::string_view nameWithCount, std::string_view type);

  // Removes one variable; a missing name is reported by a box unless `quiet`.
  void VarRemove(std::string_view name, bool quiet);

  // The type word of the last hit of `VarFind`.
  std::string_view LastVarType() const;

  // The record of 70 characters by which the store knows variable `row` of a type's table.
  std::string NameRecord(std::string_view type, std::size_t row) const;

  // The plain form of `VarFind`: scans the records. Tests hold it against the map.
  std::int32_t VarFindByScan(std::string_view name) const;

 private:
  static constexpr std::size_t kNameWidth = 50;

  enum Type : std::size_t { String, Inteiro, Decimal, TypeCount };

  struct Record {
    std::string name;  // upper case, cut at kNameWidth, without padding
    std::int32_t first;
    std::int32_t count;
  };

  struct Place {
    Type type;
    std::size_t row;
  };

  // FNV-1a, which costs less than the library's hash on texts as short as names.
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
      std::uint64_t hash = 14695981039346656037u;
      for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
      return hash;
    }
  };

  const Place* Lookup(std::string_view name) const;
  bool MayBeName(std::string_view name) const;
  std::int32_t VarIndexValue(std::string_view name);
  std::int32_t SlotIndex(std::string_view name);
  std::size_t CheckedSlot(Type type, std::int64_t slot) const;
  std::size_t SlotCount(Type type) const;
  void ResizeSlots(Type type, std::size_t count);
  void Create(std::string_view name, std::string_view type, std::int32_t count);

  std::function<void(std::string_view)> showCritical_;
  Type lastVarType_ = String;
  std::array<std::vector<Record>, TypeCount> records_;
  // One slot beyond the next free index each, so that the next free index is the size minus 1.
  std::vector<std::string> texts_{1};
  std::vector<std::int32_t> integers_{0};
  std::vector<double> decimals_{0};
  // FAST: the first record of each name, beside the tables that the rules scan.
  std::unordered_map<std::string, Place, NameHash, std::equal_to<>> places_;
  // FAST: for each first character, the lengths that names have had, a bit each. Most texts that expressions
  // look up are no names, and this tells it of most of them.
  std::array<std::uint64_t, 256> lengthsByFirst_{};
};

}  // namespace tessera
