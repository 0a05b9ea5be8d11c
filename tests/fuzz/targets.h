// What is fed with bytes of any kind: every reader of what comes from outside, and every evaluator of what a
// program writes. A target ends in silence, or in a failure of the system that it catches itself; anything
// else is a finding.
#pragma once

#include <array>
#include <string_view>

namespace tessera::fuzz {

struct Target {
  std::string_view name;  // and the folder of its seeds
  void (*feed)(std::string_view bytes);
};

extern const std::array<Target, 17> kTargets;

}  // namespace tessera::fuzz
