// What a name means to the variable store at this moment.
#pragma once

#include <cstdint>

namespace tessera {

enum class VariableType : std::uint8_t { String, Inteiro, Decimal, None };

// A name's variable, kept up to date by the store as variables come, go and move: its type, `None` while
// there is no such variable, and its first value slot. A symbol lives as long as the store, so that whoever
// holds one needs no search; it has to look at the type at each use.
struct Symbol {
  VariableType type = VariableType::None;
  bool isLocal = false;  // of a function's calls: where it has no type, there may be a variable all the same
  std::int32_t first = 0;
};

}  // namespace tessera
