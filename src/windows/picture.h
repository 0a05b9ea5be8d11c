// A picture that a program shows: its pixels, and where it was drawn by us the vector form that they come
// from.
#pragma once

#include <memory>
#include <string_view>

#include "windows/raster.h"

namespace tessera {

struct Picture {
  Raster raster;
  // An SVG of the program's own stock, from which a host that can paints it at any fineness. Where it stands
  // the pixels are for the host to fill in.
  std::string_view vector = {};

  Size size() const { return raster.size(); }
};

using PictureRef = std::shared_ptr<const Picture>;

}  // namespace tessera
