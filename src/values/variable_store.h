// The one store of all values of a running program: three pairs of tables, one pair for each type word, and
// no scopes. A variable is its name; names are found blind to case.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "language/types.h"
#include "values/symbol.h"
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

  // One variable or array of a type word; an existing name or any other word creates nothing.
  void VarCreateScalar(std::string_view name, std::string_view type);
  void VarCreateArray(std::string_view nameWithCount, std::string_view type);

  // Removes one variable; a missing name is reported by a box unless `quiet`.
  void VarRemove(std::string_view name, bool quiet);

  // The type word of the last hit of `VarFind`.
  std::string_view LastVarType() const;

  // The symbol of a name; what stands from its first "(" on is no part of it.
  const Symbol& Intern(std::string_view name);

  // FAST: the variables of a running call of a function, whose names nobody else has asked for yet. They have
  // their slots, where creating them would have put them, and get records when somebody looks for such a
  // name, or creates or removes any.
  class Frame {
   public:
    // The names begin with `function` and a number, behind which stands what the program wrote.
    explicit Frame(std::string_view function);
    void Add(std::string_view written, VariableType type);
    // The digits of a call's number, to be written over.
    std::string& Number() { return number_; }

    std::size_t size() const;
    const Symbol& operator[](std::size_t i) const;
    std::string NameOf(std::size_t i) const;

   private:
    friend class VariableStore;
    struct Variable;

    std::string function_;
    std::string number_;
    std::vector<Variable> variables_;  // all of them before the first one is entered
    std::size_t entered_ = 0;
    bool recorded_ = false;
  };

  // Creates the frame's next variables, up to `count` of them in all. Frames are left in the opposite order
  // of their first `Enter`.
  void Enter(Frame& frame, std::size_t count);
  // Removes its variables, in the order in which they were created.
  void Leave(Frame& frame);
  // Lets them be variables like all others, which stay.
  void Abandon(Frame& frame);
  // Gives records to the variables of all frames.
  void RecordFrames();

  // Where the number of a running call stands in a text that was copied out of its function's body. The body
  // lives on, and with the number of its next call the copy is that of the body again.
  class NumberPlaces {
   public:
    void Renew(std::string& text) const {
      for (const std::size_t place : places_) number_->copy(text.data() + place, number_->size());
    }

   private:
    friend class VariableStore;
    const std::string* number_ = nullptr;
    std::vector<std::size_t> places_;
  };
  bool HasFrames() const { return !frames_.empty(); }
  // Nothing for a text that may hold names of several functions.
  std::optional<NumberPlaces> FindNumbers(std::string_view text) const;

  // What `VarWrite` does for a variable that exists, without an index.
  void WriteTo(const Symbol& symbol, Value&& value);

  // False once names were declared of which symbols know nothing: names that their records cut, of which
  // several may be the same, and names that begin with a quote as literals do.
  bool SymbolsTellAll() const { return symbolsTellAll_; }

  // The slots of a type's values. Those of a symbol's variable begin at its `first`.
  std::vector<std::string>& Texts() { return texts_; }
  std::vector<std::int32_t>& Integers() { return integers_; }
  std::vector<double>& Decimals() { return decimals_; }

  // A text longer than this is more than a variable takes: failure 7.
  static constexpr std::size_t kMaxTextLength = std::size_t{1} << 29;

  // How many names a type's table has.
  std::size_t NameCount(std::string_view type) const { return records_[TableOf(TypeOf(type))].size(); }

  // The record of 70 characters by which the store knows variable `row` of a type's table.
  std::string NameRecord(std::string_view type, std::size_t row) const;

  // The plain form of `VarFind`: scans the records. Tests hold it against the map.
  std::int32_t VarFindByScan(std::string_view name) const;

 private:
  static constexpr std::size_t kNameWidth = 50;

  static constexpr std::size_t kTypes = 3;
  using Type = VariableType;

  struct Row;

  struct Record {
    std::string name;  // upper case, cut at kNameWidth, without padding
    std::int32_t first;
    std::int32_t count;
    Row* row;  // none for a further record of a name
  };

  // Where a name's first record stands, and its symbol.
  struct Row {
    Symbol symbol;
    std::size_t index = 0;
    bool isHeld = false;  // somebody has the symbol
  };

  struct Place {
    Type type;
    std::size_t index;
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

  // A word that is no type counts as "Decimal".
  static Type TypeOf(std::string_view word) {
    return word == kTypeString ? Type::String : word == kTypeInteiro ? Type::Inteiro : Type::Decimal;
  }
  static std::size_t TableOf(Type type) { return static_cast<std::size_t>(type); }
  std::vector<Record>& Table(Type type) { return records_[TableOf(type)]; }
  std::optional<Place> Lookup(std::string_view name) const;
  std::optional<Place> LookupExact(std::string_view upperName) const;
  std::optional<Place> Scan(std::string_view upperName) const;
  Row& RowOf(std::string_view upperName);
  Row& AddRow(std::string_view upperName);
  void AddRecord(std::string_view name, Type table, std::int32_t first, std::int32_t count, Row* row);
  void RecordVariable(Frame& frame, std::size_t i);
  bool IsLocal(std::string_view name) const;
  bool MayBeName(std::string_view name) const;
  std::int32_t VarIndexValue(std::string_view name);
  std::int32_t SlotIndex(std::string_view name);
  void Write(Type type, std::int64_t slot, Value&& value);
  std::size_t CheckedSlot(Type type, std::int64_t slot) const;
  // More slots of one type than any program needs; beyond it the memory of the machine would answer.
  static constexpr std::size_t kMaxSlots = 50'000'000;
  std::size_t SlotCount(Type type) const;
  void ResizeSlots(Type type, std::size_t count);
  template <typename Act>
  auto WithSlots(Type type, Act act);
  void Create(std::string_view name, std::string_view type, std::int32_t count);

  std::function<void(std::string_view)> showCritical_;
  Type lastVarType_ = Type::String;
  std::array<std::vector<Record>, kTypes> records_;
  // One slot beyond the next free index each, so that the next free index is the size minus 1.
  std::vector<std::string> texts_{1};
  std::vector<std::int32_t> integers_{0};
  std::vector<double> decimals_{0};
  // FAST: the names that have a variable or were asked for, beside the tables that the rules scan.
  // A row is one of `ownRows_`, or a frame's.
  std::unordered_map<std::string, Row*, NameHash, std::equal_to<>> rows_;
  std::deque<Row> ownRows_;
  std::vector<Row*> freeRows_;
  std::vector<Frame*> frames_;  // of the running calls
  std::size_t unrecorded_ = 0;  // how many of them, the last ones, have no records
  // FAST: for each first character, the lengths that names have had, a bit each. Most texts that expressions
  // look up are no names, and this tells it of most of them.
  std::array<std::uint64_t, 256> lengthsByFirst_{};
  bool cutNames_ = false;
  bool symbolsTellAll_ = true;
};

struct VariableStore::Frame::Variable {
  std::string written;
  VariableType type;
  Row row;
};

inline VariableStore::Frame::Frame(std::string_view function) : function_(function) {}

inline std::size_t VariableStore::Frame::size() const {
  return variables_.size();
}

template <typename Act>
auto VariableStore::WithSlots(Type type, Act act) {
  switch (type) {
    case Type::String:
      return act(texts_);
    case Type::Inteiro:
      return act(integers_);
    default:
      return act(decimals_);
  }
}

inline const Symbol& VariableStore::Frame::operator[](std::size_t i) const {
  return variables_[i].row.symbol;
}

}  // namespace tessera
