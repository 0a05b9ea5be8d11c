// Which programs out of chance a test runs: TESSERA_MADE_PROGRAMS and TESSERA_MADE_FROM choose other ones
// than the usual.
#pragma once

#include <cstdlib>

namespace tessera::test {

struct MadeRange {
  unsigned first;
  unsigned count;
};

inline MadeRange RangeOfMade(unsigned usualCount) {
  const auto number = [](const char* name, unsigned usual) {
    const char* text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
  };
  return {number("TESSERA_MADE_FROM", 1), number("TESSERA_MADE_PROGRAMS", usualCount)};
}

}  // namespace tessera::test
