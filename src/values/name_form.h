// FAST: a name in a text that never changes, with its index if it has one: the symbols that the store would
// look up, and the element's place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "values/variable_store.h"

namespace tessera {

// Gives the variable the number where it takes it: otherwise nothing, and false.
inline bool PutWhole(std::int32_t& variable, std::int64_t number) {
  const auto narrow = static_cast<std::int32_t>(number);
  if (narrow != number) return false;
  variable = narrow;
  return true;
}

struct NameForm {
  const Symbol* symbol = nullptr;
  const Symbol* index = nullptr;  // of an index that is a name
  std::int32_t offset = 0;        // of one that is a number
  bool isElement = false;         // it has an index

  // Nothing for a name whose index can't be read without a failure.
  static std::optional<NameForm> Of(VariableStore& store, std::string_view name);

  VariableType type() const { return symbol->type; }

  // The value, of a variable of that type; null for any other.
  std::int32_t* Integer(VariableStore& store) const { return Integer(store.Integers()); }
  std::int32_t* Integer(std::vector<std::int32_t>& integers) const {
    return ValueIn(integers, integers, VariableType::Inteiro);
  }
  double* Decimal(VariableStore& store) const {
    return ValueIn(store.Integers(), store.Decimals(), VariableType::Decimal);
  }
  std::string* Text(VariableStore& store) const {
    return ValueIn(store.Integers(), store.Texts(), VariableType::String);
  }

 private:
  // The slot of the element's value in a table of `count` slots. False where the way by the name has to tell
  // what is wrong. The name has a type.
  bool FindSlot(const std::vector<std::int32_t>& integers, std::size_t count, std::size_t& slot) const {
    std::int64_t place = std::int64_t{symbol->first} + offset;
    if (index != nullptr) {
      // Whatever the type of the index, the table of integers is read.
      const auto at = static_cast<std::size_t>(index->first);
      if (index->type == VariableType::None || at >= integers.size()) return false;
      place += integers[at];
    }
    slot = static_cast<std::size_t>(place);
    return slot < count;
  }

  template <typename Slots>
  typename Slots::value_type* ValueIn(const std::vector<std::int32_t>& integers, Slots& slots,
                                      VariableType wanted) const {
    if (symbol->type != wanted) return nullptr;
    auto slot = static_cast<std::size_t>(symbol->first);
    if (isElement && !FindSlot(integers, slots.size(), slot)) return nullptr;
    return &slots[slot];
  }
};

// What `VarRead` and `VarWrite` do for the name of a form: where symbols tell of it, nobody looks for it.
Value ReadBy(VariableStore& store, const NameForm& form, std::string_view name);
void WriteBy(VariableStore& store, const NameForm& form, std::string_view name, Value&& value);

}  // namespace tessera
