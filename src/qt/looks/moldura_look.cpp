#include "qt/looks/moldura_look.h"

#include <QPainter>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kCaptionLeft = 8;
constexpr double kCaptionGap = 4;

}  // namespace

// The pointer passes through.
MolduraLook::MolduraLook(MolduraControl& control, LogicEntry& entry) : PaintedLook(control, entry) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void MolduraLook::FollowControl() {
  setAccessibleName(ToQString(control().Caption()));
  update();
}

void MolduraLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QString caption = ToQString(control().Caption());
  const QRectF text = caption.isEmpty()
                          ? QRectF()
                          : QRectF(kCaptionLeft + kCaptionGap, 0, fontMetrics().horizontalAdvance(caption),
                                   fontMetrics().height());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(skin::kEdge), 1));
  if (!caption.isEmpty()) {
    painter.setClipRegion(QRegion(rect()) - text.adjusted(-kCaptionGap, 0, kCaptionGap, 0).toAlignedRect());
  }
  const double top = qRound(text.height() / 2);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, top + 0.5, -0.5, -0.5), skin::kRound, skin::kRound);
  painter.setClipping(false);
  painter.setPen(ToQColor(control().ForeColor()));
  painter.drawText(text.adjusted(0, 0, 1, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, caption);
}

}  // namespace tessera
