// A picture that a program shows: its pixels, and where it was drawn by us the vector form that they come
// from.
#pragma once

#include <memory>
#include <string_view>

#include "windows/raster.h"

namespace tessera {

struct Picture {
  Raster raster;
  // An SVG of the system's own stock, from which a host that can paints it for a finer screen.
  std::string_view vector = {};

  Size size() const { return raster.size(); }
};

using PictureRef = std::shared_ptr<const Picture>;

}  // namespace tessera
