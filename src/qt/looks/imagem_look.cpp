#include "qt/looks/imagem_look.h"

#include <QMouseEvent>
#include <optional>

#include "platform/failure.h"
#include "qt/form.h"

namespace tessera {

namespace {

std::optional<MouseButton> ButtonOf(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) return MouseButton::Left;
  if (event.button() == Qt::RightButton) return MouseButton::Right;
  return std::nullopt;
}

PointerPlace PlaceOf(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

}  // namespace

// The windows of this host are all of its own kind.
ImagemLook::ImagemLook(ImagemControl& control, LogicEntry& entry)
    : PaintedLook(control, entry),
      pane_(std::make_unique<SurfacePane>(*this, control.surface(), control.surface().Pixels(),
                                          static_cast<QtForm&>(control.form()).Drawn())) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  control.surface().view = this;
}

ImagemLook::~ImagemLook() {
  LoseControl();
}

// What lies in the picture has a view of its own, which takes it away.
void ImagemLook::LoseControl() {
  if (!pane_) return;
  control().surface().view = nullptr;
  pane_.reset();
  for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) child->setParent(parentWidget());
}

void ImagemLook::paintEvent(QPaintEvent* event) {
  if (pane_) pane_->OnPaint(*event);
}

// A surface too large to draw on is the failure of the drawing.
void ImagemLook::resizeEvent(QResizeEvent*) {
  if (pane_) Guard([this] { pane_->Fit(); });
}

void ImagemLook::mousePressEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  Tell([button, at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseDown(*button, at); });
}

void ImagemLook::mouseMoveEvent(QMouseEvent* event) {
  Tell([at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseMove(at); });
}

void ImagemLook::mouseReleaseEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  Tell([button, at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseUp(*button, at); });
}

// The second press of a double click.
void ImagemLook::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  if (event->button() == Qt::LeftButton) Tell([](ImagemControl& image) { image.DoubleClick(); });
}

}  // namespace tessera
