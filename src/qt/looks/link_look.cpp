#include "qt/looks/link_look.h"

#include <QMouseEvent>
#include <QPainter>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

LinkLook::LinkLook(LinkControl& control, LogicEntry& entry) : PaintedLook(control, entry) {
  setCursor(Qt::PointingHandCursor);
}

void LinkLook::FollowControl() {
  setAccessibleName(ToQString(control().Text()));
  update();
}

void LinkLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(control().BackColor()));
  QFont face = font();
  face.setUnderline(control().FontUnderline());
  painter.setFont(face);
  painter.setPen(skin::TextColour(*this, ToQColor(control().ForeColor())));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   ToQString(control().Text()));
}

void LinkLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !rect().contains(event->pos())) return;
  Tell([](LinkControl& link) { link.Click(); },
       [](const LinkControl& link) {
         return ActLine({"clique", link.Name()});
       });
}

}  // namespace tessera
