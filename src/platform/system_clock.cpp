#include "platform/system_clock.h"

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

}  // namespace tessera
