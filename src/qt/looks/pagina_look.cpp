#include "qt/looks/pagina_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "qt/colour.h"

namespace tessera {

namespace {

constexpr int kShadow = 4;            // pixels
constexpr double kWheelPixels = 0.6;  // of the page for each unit that the wheel turns; a notch has 120
constexpr QRgb kEdge = 0xFF6E747A;

}  // namespace

void PaginaLook::FollowControl() {
  painted_ = {};
  update();
}

QRectF PaginaLook::PageRect() const {
  const reports::PaginaControl& pagina = control();
  return {pagina.PageLeft(), pagina.PageTop(), pagina.PageWidth(), pagina.PageHeight()};
}

// `seen` is in the screen's pixels, from the page's upper left corner.
void PaginaLook::PaintPage(const QRect& seen) {
  if (painted_ == seen && !page_.IsEmpty()) return;
  page_ = Raster(Size{seen.width(), seen.height()});
  const double pixelsOfTwip = control().Zoom() * devicePixelRatioF() / reports::kTwipsOfPixel;
  const reports::Page blank;
  const reports::Page& page = control().Shown() == nullptr ? blank : *control().Shown();
  control().Painter().Paint(page, pixelsOfTwip, seen.left(), seen.top(), page_);
  painted_ = seen;
}

void PaginaLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  const QRectF page = PageRect();
  for (int i = kShadow; i > 0; --i) {
    painter.fillRect(page.translated(i, i), QColor(0, 0, 0, 60 / kShadow));
  }
  painter.fillRect(page.adjusted(-1, -1, 1, 1), QColor(kEdge));
  const QRectF inSight = page & QRectF(rect());
  if (inSight.isEmpty()) return;
  const double ratio = devicePixelRatioF();
  const QRect seen =
      QRectF((inSight.topLeft() - page.topLeft()) * ratio, inSight.size() * ratio).toAlignedRect();
  PaintPage(seen);
  QImage image(reinterpret_cast<const uchar*>(page_.Row(0)), seen.width(), seen.height(),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  painter.setClipRect(inSight);
  painter.drawImage(page.topLeft() + QPointF(seen.topLeft()) / ratio, image);
}

void PaginaLook::wheelEvent(QWheelEvent* event) {
  const double turned = event->angleDelta().y();
  if (turned == 0) return;
  Glance([turned, zooms = event->modifiers().testFlag(Qt::ControlModifier)](reports::PaginaControl& pagina) {
    pagina.Wheel(-turned * kWheelPixels, zooms);
  });
}

// The page follows the pointer that holds it.
void PaginaLook::mousePressEvent(QMouseEvent* event) {
  dragged_ = event->position();
}

void PaginaLook::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const double moved = event->position().y() - dragged_.y();
  dragged_ = event->position();
  Glance([moved](reports::PaginaControl& pagina) { pagina.Wheel(-moved, false); });
}

}  // namespace tessera
