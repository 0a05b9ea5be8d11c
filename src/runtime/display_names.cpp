#include "runtime/display_names.h"

#include <cstdlib>

namespace tessera {

std::vector<std::string_view> NamedDisplays() {
  std::vector<std::string_view> named;
  for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') named.emplace_back(variable);
  }
  return named;
}

}  // namespace tessera
