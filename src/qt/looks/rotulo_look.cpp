#include "qt/looks/rotulo_look.h"

#include <QFontMetricsF>
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
  const QString caption = ToQLines(control().Caption());
  const int flags = static_cast<int>(ToQAlignment(control().Alignment()) | Qt::AlignTop) |
                    (Fits(caption) ? 0 : Qt::TextWordWrap);
  const QRectF needed = painter.boundingRect(QRectF(rect()), flags, caption);
  const double top = std::clamp((height() - needed.height()) / 2, 0.0, kTopOfLine);
  painter.drawText(QRectF(rect()).adjusted(0, qRound(top), 0, 0), flags, caption);
}

// The toolkit's own breaking of lines wants more room for some letters than they take.
bool RotuloLook::Fits(const QString& caption) const {
  const QFontMetricsF metrics(font(), this);
  const QStringList lines = caption.split(u'\n');
  return std::ranges::all_of(lines,
                             [&](const QString& line) { return metrics.horizontalAdvance(line) <= width(); });
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
