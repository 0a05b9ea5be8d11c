// The families of objects: the control arrays of each, the windows that have them, and the variables that an
// object has beside it. The suffixes stand in the family's word.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessera {

// The windows that have a control array, beside the main window, which has all.
enum class Carried : std::uint8_t { Everywhere, Framed, MainAlone };

// A variable that an object of a family has beside it: `name.Txt`.
struct Companion {
  std::string_view suffix;
  std::string_view type;
};

struct Family {
  std::string_view word;
  // Control arrays; the second is empty for most.
  std::array<std::string_view, 2> arrays;
  Carried carried;
  std::array<Companion, 2> companionRows = {};
  // Whether the main window alone has the second array.
  bool secondOnMainAlone = false;

  std::span<const Companion> Companions() const {
    std::size_t count = 0;
    while (count < companionRows.size() && !companionRows[count].suffix.empty()) ++count;
    return {companionRows.data(), count};
  }
};

std::span<const Family> Families();

// The family of a word of the language; null for a word without objects.
const Family* FamilyOf(std::string_view word);

// Which windows have that control array. An array of no family is everywhere.
Carried CarriedBy(std::string_view array);

}  // namespace tessera
