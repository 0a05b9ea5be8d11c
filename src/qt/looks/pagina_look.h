// The look of `PicXRel`, the page of the preview in its frame: the page's operations are painted anew for the
// screen's own pixels, so that it is sharp on every one.
#pragma once

#include <QImage>

#include "qt/looks/look.h"
#include "reports/preview_controls.h"
#include "windows/raster.h"

namespace tessera {

class PaginaLook final : public PaintedLook<reports::PaginaControl> {
 public:
  using PaintedLook::PaintedLook;

  void FollowControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QRectF PageRect() const;
  void PaintPage(const QRect& seen);

  // The part of the page that is in sight, in the screen's pixels; it is painted anew when something changed.
  Raster page_;
  QRect painted_;
  QPointF dragged_;
};

}  // namespace tessera
