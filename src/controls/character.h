// The kinds of characters that entry controls tell apart, in the code page.
#pragma once

#include "text/one_based.h"

namespace tessera {

constexpr bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

// Accented letters too; of them only the sharp s has no other case.
inline bool IsLetter(char character) {
  return Upper(character) != Lower(character) || character == '\xDF';
}

// What a text takes as typed: everything but the codes of keys.
constexpr bool IsPrintable(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code >= 32 && code != 127;
}

}  // namespace tessera
