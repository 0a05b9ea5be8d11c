// The pixels of the stock: files of the "Quite OK Image Format", version 1.0, so that no library need be
// loaded for the system's own pictures.
#pragma once

#include <string_view>

#include "windows/raster.h"

namespace tessera {

// Of a whole file, as the build made it.
Raster StockPixels(std::string_view qoi);

}  // namespace tessera
