// The machine's own clock and a generator seeded once: both hosts use them as they are.
#pragma once

#include <cstdint>
#include <random>

#include "platform/host.h"

namespace tessera {

class SystemClock final : public Clock {
 public:
  LocalTime Now() override;
};

class SeededRandom final : public Random {
 public:
  // By chance, where no seed is given.
  explicit SeededRandom(std::uint64_t seed = ChanceSeed()) : engine_(seed) {}
  double Next() override { return std::generate_canonical<double, 53>(engine_); }

 private:
  static std::uint64_t ChanceSeed();

  std::mt19937_64 engine_;
};

}  // namespace tessera
