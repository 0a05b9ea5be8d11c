// The vector forms of the system's own pictures, from the folder stock/.
#pragma once

#include <span>
#include <string_view>

namespace tessera {

struct StockSource {
  std::string_view name;
  std::string_view svg;
};

std::span<const StockSource> StockSources();

}  // namespace tessera
