#include "qt/looks/check_look.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kBox = 13;
constexpr double kCaptionLeft = 19;

}  // namespace

void CheckLook::FollowControl() {
  setAccessibleName(ToQString(control().Caption()));
  update();
}

void CheckLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  PaintMark(painter, QRectF(1, qRound((height() - kBox) / 2), kBox, kBox));
  const QString caption = ToQString(control().Caption());
  const QColor colour = skin::TextColour(*this, ToQColor(control().ForeColor()));
  const QRectF text(kCaptionLeft, 0, width() - kCaptionLeft, height());
  painter.setPen(colour);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, caption);
  if (!hasFocus()) return;
  QRectF mark = painter.boundingRect(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, caption);
  mark = mark.adjusted(-2, 0, 2, 0).toAlignedRect();
  skin::PaintFocusMark(painter, mark.intersected(QRectF(rect())), colour);
}

void CheckLook::PaintMark(QPainter& painter, const QRectF& box) {
  const skin::State state = skin::StateOf(*this);
  const QColor ground = !isEnabled() ? skin::kFieldDisabled : isPressed_ ? skin::kAccentLight : 0xFFFFFFFF;
  skin::PaintFrame(painter, box, ground, state);
  if (!control().Value()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(isEnabled() ? skin::kAccent : skin::kTextDisabled), 2, Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  QPainterPath tick(box.topLeft() + QPointF(3, 6.5));
  tick.lineTo(box.topLeft() + QPointF(5.5, 9.5));
  tick.lineTo(box.topLeft() + QPointF(10, 3.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(tick);
}

void OpcaoLook::PaintMark(QPainter& painter, const QRectF& box) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(skin::EdgeOf(skin::StateOf(*this)), 1));
  painter.setBrush(QColor(isEnabled() ? 0xFFFFFFFF : skin::kFieldDisabled));
  painter.drawEllipse(box.adjusted(0.5, 0.5, -0.5, -0.5));
  if (!control().Value()) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(isEnabled() ? skin::kAccent : skin::kTextDisabled));
  painter.drawEllipse(box.center(), 3.25, 3.25);
}

void CheckLook::enterEvent(QEnterEvent*) {
  update();
}

void CheckLook::leaveEvent(QEvent*) {
  update();
}

void CheckLook::mousePressEvent(QMouseEvent* event) {
  isPressed_ = event->button() == Qt::LeftButton;
  update();
}

void CheckLook::mouseReleaseEvent(QMouseEvent* event) {
  const bool isClick = std::exchange(isPressed_, false) && rect().contains(event->pos());
  update();
  if (!isClick) return;
  Tell([](CheckControl& check) { check.Click(); },
       [](const CheckControl& check) {
         return ActLine({"clique", check.Name()});
       });
}

}  // namespace tessera
