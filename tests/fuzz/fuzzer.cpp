// A target on libFuzzer; the variable TESSERA_FUZZ names it.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/targets.h"

namespace {

const tessera::fuzz::Target& ChosenTarget() {
  const char* name = std::getenv("TESSERA_FUZZ");
  for (const tessera::fuzz::Target& target : tessera::fuzz::kTargets) {
    if (name != nullptr && target.name == name) return target;
  }
  std::fputs("TESSERA_FUZZ names no target\n", stderr);
  std::exit(2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const tessera::fuzz::Target& target = ChosenTarget();
  target.feed({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
