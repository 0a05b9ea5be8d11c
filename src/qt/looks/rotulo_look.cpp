#include "qt/looks/rotulo_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "qt/colour.h"
#include "qt/looks/alignment.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kTopOfLine = 4;  // pixels above the first line of an entry

}  // namespace

void RotuloLook::FollowControl() {
  setAccessibleName(ToQString(control().Caption()));
  update();
}

// The first line stands as high as that of an entry beside the label, as far as the label has room.
void RotuloLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  painter.setPen(skin::TextColour(*this, ToQColor(control().ForeColor())));
  const int flags = static_cast<int>(ToQAlignment(control().Alignment()) | Qt::AlignTop) | Qt::TextWordWrap;
  const QString caption = ToQLines(control().Caption());
  const QRectF needed = painter.boundingRect(QRectF(rect()), flags, caption);
  const double top = std::clamp((height() - needed.height()) / 2, 0.0, kTopOfLine);
  painter.drawText(QRectF(rect()).adjusted(0, qRound(top), 0, 0), flags, caption);
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
