#include "qt/looks/screen_look.h"

#include <QImage>
#include <QPainter>

#include "qt/colour.h"

namespace tessera {

// The frame's own pixels are painted, with no copy of them.
void ScreenLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  const PictureRef frame = control().Frame();
  if (!frame || frame->raster.IsEmpty()) return;
  const Size size = frame->size();
  const QImage image(reinterpret_cast<const uchar*>(frame->raster.Row(0)), size.width, size.height,
                     QImage::Format_ARGB32_Premultiplied);
  const ControlPlace place = control().PlaceOfFrame(size);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(place.Left, place.Top, place.Width, place.Height), image);
}

}  // namespace tessera
