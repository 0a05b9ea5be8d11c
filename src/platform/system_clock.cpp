#include "platform/system_clock.h"

#include <unistd.h>

#include <ctime>

namespace tessera {

LocalTime SystemClock::Now() {
  using namespace std::chrono;
  const auto now = floor<milliseconds>(std::chrono::system_clock::now());
  const auto inSeconds = floor<seconds>(now);
  const std::time_t stamp = inSeconds.time_since_epoch().count();
  std::tm local{};
  localtime_r(&stamp, &local);
  return LocalTime(now.time_since_epoch() + seconds(local.tm_gmtoff));
}

// The library's own source of chance asks the processor what it can do, for which a virtual machine takes
// long.
std::uint64_t SeededRandom::ChanceSeed() {
  std::uint64_t seed = 0;
  if (getentropy(&seed, sizeof seed) != 0) seed = static_cast<std::uint64_t>(std::time(nullptr));
  return seed;
}

}  // namespace tessera
