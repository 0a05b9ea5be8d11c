#include "qt/looks/imagem_look.h"

#include <utility>

#include "qt/form.h"
#include "qt/form_acts.h"
#include "qt/mouse_events.h"

namespace tessera {

namespace {

PointerPlace InWindow(const ImagemControl& image, const QMouseEvent& event) {
  const PointerPlace corner = image.Corner();
  return {corner.x + event.position().x(), corner.y + event.position().y()};
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

void ImagemLook::mousePressEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  Tell(
      [button, at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseDown(*button, at); },
      [&](const ImagemControl& image) { return PressLines(image.form(), InWindow(image, *event), *button); });
}

void ImagemLook::mouseMoveEvent(QMouseEvent* event) {
  Tell([at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseMove(at); },
       [&](const ImagemControl& image) { return MoveLine(image.form(), InWindow(image, *event)); });
}

void ImagemLook::mouseReleaseEvent(QMouseEvent* event) {
  const auto button = ButtonOf(*event);
  if (!button) return;
  const bool ofDoubleClick = std::exchange(isDoubleClick_, false);
  Tell([button, at = PlaceOf(*event)](ImagemControl& image) { image.OnMouseUp(*button, at); },
       [&](const ImagemControl&) { return ofDoubleClick ? std::string() : ReleaseLine(*button); });
}

// The second press of a double click.
void ImagemLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  isDoubleClick_ = true;
  Tell(
      [at = PlaceOf(*event)](ImagemControl& image) {
        image.OnMouseDown(MouseButton::Left, at);
        image.DoubleClick();
      },
      [](const ImagemControl&) { return std::string("duploclique"); });
}

}  // namespace tessera
