// Colours of programs as the window system's.
#pragma once

#include <QColor>

#include "windows/colours.h"

namespace tessera {

inline QColor ToQColor(Colour colour) {
  const std::int32_t rgb = ResolveColour(colour);
  return QColor(rgb & 0xFF, rgb >> 8 & 0xFF, rgb >> 16 & 0xFF);
}

}  // namespace tessera
