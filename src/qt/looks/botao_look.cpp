#include "qt/looks/botao_look.h"

#include <QEnterEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qt/pictures.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kGap = 6;  // between picture and caption

QImage Drawn(const PictureRef& picture, const QWidget& widget) {
  return picture ? ToQImage(*picture, widget.devicePixelRatioF()) : QImage();
}

QColor GroundOf(BtnEsp::Picture state, const QColor& own) {
  switch (state) {
    case BtnEsp::Picture::kBtnDisabled:
      return skin::kFieldDisabled;
    case BtnEsp::Picture::kBtnDown:
      return own.darker(118);
    case BtnEsp::Picture::kBtnHigh:
      return own.lighter(104);
    case BtnEsp::Picture::kBtnFocus:
    case BtnEsp::Picture::kBtnUp:
      break;
  }
  return own;
}

}  // namespace

void BotaoLook::FollowControl() {
  setAccessibleName(ToQString(control().Caption()));
  update();
}

void BotaoLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (control().GetStyle() == BotaoControl::Style::Skinned &&
      control().Skin().Of(control().State().Shown())) {
    PaintSkinned(painter);
  } else {
    PaintPlain(painter);
  }
}

void BotaoLook::PaintPlain(QPainter& painter) {
  const BtnEsp::Picture state = control().State().Shown();
  const QColor ground = GroundOf(state, ToQColor(control().BackColor()));
  QLinearGradient light(0, 0, 0, height());
  light.setColorAt(0, state == BtnEsp::Picture::kBtnDown ? ground : ground.lighter(108));
  light.setColorAt(1, state == BtnEsp::Picture::kBtnDown ? ground : ground.darker(106));
  const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(skin::EdgeOf(skin::StateOf(*this)), 1));
  painter.setBrush(light);
  painter.drawRoundedRect(area, skin::kRound, skin::kRound);
  const QColor text = skin::TextColour(*this, ToQColor(control().ForeColor()));
  PaintContent(painter, text);
  if (hasFocus()) skin::PaintFocusMark(painter, QRectF(rect()).adjusted(3, 3, -3, -3), text);
}

void BotaoLook::PaintSkinned(QPainter& painter) {
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(rect()), Drawn(control().Skin().Of(control().State().Shown()), *this));
  PaintContent(painter, skin::TextColour(*this, ToQColor(control().ForeColor())));
}

// The picture stands left of the caption, both in the middle; a pressed button moves them by a pixel.
void BotaoLook::PaintContent(QPainter& painter, const QColor& colour) {
  const QImage picture = Drawn(control().Picture(), *this);
  const QString caption = ToQString(control().Caption());
  QSizeF size = picture.isNull() ? QSizeF(0, 0) : picture.deviceIndependentSize();
  const double room = height() - 4;
  if (size.height() > room) size *= room / size.height();
  const double textWidth = fontMetrics().horizontalAdvance(caption);
  const double gap = size.width() > 0 && textWidth > 0 ? kGap : 0;
  QRectF content(0, 0, size.width() + gap + textWidth, height());
  content.moveLeft(std::max(2.0, (width() - content.width()) / 2));
  if (control().State().Shown() == BtnEsp::Picture::kBtnDown) content.translate(1, 1);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setOpacity(isEnabled() ? 1 : 0.4);
  if (size.width() > 0) {
    const QPointF corner(qRound(content.left()), qRound(content.center().y() - size.height() / 2));
    painter.drawImage(QRectF(corner, size), picture);
  }
  painter.setOpacity(1);
  painter.setPen(colour);
  content.setLeft(content.left() + size.width() + gap);
  painter.drawText(content.adjusted(0, 0, 1, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   caption);
}

void BotaoLook::enterEvent(QEnterEvent*) {
  Glance([](BotaoControl& button) { button.PointerMove(true); });
}

void BotaoLook::leaveEvent(QEvent*) {
  Glance([](BotaoControl& button) { button.PointerMove(false); });
}

void BotaoLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Glance([](BotaoControl& button) { button.PointerDown(); });
}

void BotaoLook::mouseMoveEvent(QMouseEvent* event) {
  Glance([inside = rect().contains(event->pos())](BotaoControl& button) { button.PointerMove(inside); });
}

void BotaoLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const bool inside = rect().contains(event->pos());
  if (!inside) return Glance([](BotaoControl& button) { button.PointerUp(false); });
  Tell([](BotaoControl& button) { button.PointerUp(true); },
       [](const BotaoControl& button) {
         return ActLine({"clique", button.Name()});
       });
}

}  // namespace tessera
