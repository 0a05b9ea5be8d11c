#include "qt/looks/gif_look.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/colour.h"
#include "qt/pictures.h"
#include "windows/form.h"

namespace tessera {

GifLook::GifLook(GifControl& control, LogicEntry& entry) : PaintedLook(control, entry) {
  // The pointer passes through what floats.
  setAttribute(Qt::WA_TransparentForMouseEvents, control.kind() == GifControl::Kind::Floating);
}

// A frame that is a whole picture of the stock is painted anew for a finer screen.
void GifLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (control().kind() == GifControl::Kind::Placed)
    painter.fillRect(rect(), ToQColor(control().form().BackColor()));
  if (const AnimationFrame* whole = control().WholeFrame()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), ToQImage(*whole->picture, devicePixelRatioF()));
    return;
  }
  const Raster* seen = control().Seen();
  if (seen == nullptr || seen->IsEmpty()) return;
  const QImage image(reinterpret_cast<const uchar*>(seen->Row(0)), seen->size().width, seen->size().height,
                     QImage::Format_ARGB32_Premultiplied);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, image.size() != size());
  painter.drawImage(rect(), image);
}

void GifLook::mouseReleaseEvent(QMouseEvent* event) {
  const bool isClick = event->button() == Qt::LeftButton && !std::exchange(afterDoubleClick_, false);
  if (!isClick || !rect().contains(event->pos())) return;
  Tell([](GifControl& gif) { gif.Click(); },
       [](const GifControl& gif) {
         return ActLine({"clique", gif.Name()});
       });
}

// The second release of a double click is no click of its own.
void GifLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  afterDoubleClick_ = true;
  Tell([](GifControl& gif) { gif.DoubleClick(); },
       [](const GifControl& gif) {
         return ActLine({"duploclique", gif.Name()});
       });
}

}  // namespace tessera
