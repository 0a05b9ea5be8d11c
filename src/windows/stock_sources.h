// The system's own pictures, drawn in the folder stock/: the build writes their table.
#pragma once

#include <span>
#include <string_view>

namespace tessera {

struct StockSource {
  std::string_view name;
  std::string_view svg;
  std::string_view qoi;  // its pixels (stock_pixels.h), of which all hosts show and read the same
};

std::span<const StockSource> StockSources();

}  // namespace tessera
