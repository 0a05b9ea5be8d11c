// How texts stand, as the window system has it.
#pragma once

#include <Qt>

#include "controls/text_align.h"

namespace tessera {

inline Qt::Alignment ToQAlignment(TextAlign alignment) {
  switch (alignment) {
    case TextAlign::kRight:
      return Qt::AlignRight;
    case TextAlign::kCentre:
      return Qt::AlignHCenter;
    case TextAlign::kLeft:
      break;
  }
  return Qt::AlignLeft;
}

}  // namespace tessera
