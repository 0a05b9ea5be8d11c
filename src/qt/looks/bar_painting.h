// The looks of `BarraHorizontal` and `BarraVertical`, shared by the bar as an object and by the bars inside
// grids.
#pragma once

#include <QRectF>
#include <Qt>

#include "controls/scroll_bar.h"

class QPainter;

namespace tessera::skin {

// Paints a bar that is laid out for the longer side of `rect`: trough, arrows and thumb in their normal,
// hovered, pressed and disabled states. `hovered` is the part below the pointer.
void PaintBar(QPainter& painter, const QRectF& rect, Qt::Orientation orientation, const ScrollBar& bar,
              ScrollBar::Part hovered);

}  // namespace tessera::skin
