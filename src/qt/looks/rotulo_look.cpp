#include "qt/looks/rotulo_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qt/text.h"

namespace tessera {

namespace {

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Right:
      return Qt::AlignRight;
    case Alignment::Centre:
      return Qt::AlignHCenter;
    case Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

}  // namespace

void RotuloLook::FollowControl() {
  setAccessibleName(ToQString(control().Caption()));
  update();
}

void RotuloLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  painter.setPen(skin::TextColour(*this, ToQColor(control().ForeColor())));
  const auto flags = ToQt(control().TextAlignment()) | Qt::AlignTop | Qt::TextWordWrap;
  painter.drawText(rect(), static_cast<int>(flags), ToQLines(control().Caption()));
}

void RotuloLook::mouseReleaseEvent(QMouseEvent* event) {
  const bool isClick = event->button() == Qt::LeftButton && !std::exchange(afterDoubleClick_, false);
  if (isClick && rect().contains(event->pos())) Tell([](RotuloControl& label) { label.Click(); });
}

// The second release of a double click is no click of its own.
void RotuloLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  afterDoubleClick_ = true;
  Tell([](RotuloControl& label) { label.DoubleClick(); });
}

}  // namespace tessera
