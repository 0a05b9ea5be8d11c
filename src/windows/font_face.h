// The font of a text on a window or a control.
#pragma once

#include <string>

namespace tessera {

struct FontFace {
  std::string name = "Courier New";
  double size = 10;  // points, at 96 dots an inch
  bool bold = false;
  bool italic = false;
  bool operator==(const FontFace&) const = default;
};

}  // namespace tessera
