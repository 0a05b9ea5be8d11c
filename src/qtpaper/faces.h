// The faces of texts on paper: fonts at 1,440 dots an inch, unhinted and without kerning, so that a text is
// as wide as the advances of its characters together, whatever it is painted on.
#pragma once

#include <QFont>
#include <QRawFont>
#include <array>
#include <map>
#include <string>
#include <tuple>

#include "reports/page_painter.h"

namespace tessera::qtpaper {

struct Face {
  QFont font;
  QRawFont raw;
  std::array<quint32, 256> glyphs{};  // by the character's byte; 0 where the font has none
  reports::FaceMeasures measures;
};

class Faces {
 public:
  const Face& Of(const FontFace& face);

 private:
  std::map<std::tuple<std::string, double, bool, bool>, Face> faces_;
};

}  // namespace tessera::qtpaper
