#include "reports/report_keys.h"

#include <algorithm>

namespace tessera::reports {

std::string PegaValor(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return {};
  const std::string_view value = text.substr(colon + 1);
  return std::string(value.substr(0, value.find_first_of(",; ")));
}

std::optional<std::string> ValueOfKey(std::string_view text, std::string_view key) {
  const std::size_t at = text.find(key);
  if (at == std::string_view::npos) return std::nullopt;
  return PegaValor(text.substr(at));
}

}  // namespace tessera::reports
