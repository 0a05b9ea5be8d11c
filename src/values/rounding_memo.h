// Which floats are known to be their own rounding to 15 digits. Arithmetic reads variables as their texts
// show them, and most of what it reads it has just written.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "text/number.h"

namespace tessera {

class RoundingMemo {
 public:
  double Rounded(double value) {
    if (known_[PlaceOf(value)] == value) return value;
    const double rounded = RoundTo15Digits(value);
    known_[PlaceOf(rounded)] = rounded;
    return rounded;
  }

 private:
  static std::size_t PlaceOf(double value) {
    return static_cast<std::size_t>((std::bit_cast<std::uint64_t>(value) * 0x9E3779B97F4A7C15u) >> 60);
  }

  std::array<double, 16> known_{};
};

}  // namespace tessera
