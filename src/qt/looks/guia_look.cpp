#include "qt/looks/guia_look.h"

#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kPadding = 12;

}  // namespace

// The bar is as wide as its window, whoever changes that.
void GuiaLook::FollowControl() {
  if (!std::exchange(follows_, true)) parentWidget()->installEventFilter(this);
  resize(parentWidget()->width(), height());
  raise();
  update();
}

bool GuiaLook::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) resize(parentWidget()->width(), height());
  return false;
}

double GuiaLook::TabWidth(std::size_t menu) const {
  const MenuItem& tab = control().Guia(menu);
  return tab.visible ? fontMetrics().horizontalAdvance(ToQString(tab.caption)) + 2 * kPadding : 0;
}

QRectF GuiaLook::TabRect(std::size_t menu) const {
  double left = 0;
  for (std::size_t before = 0; before < menu; ++before) left += TabWidth(before);
  return {left, 0, TabWidth(menu), height() - 1.0};
}

std::size_t GuiaLook::TabAt(QPointF at) const {
  std::size_t menu = 0;
  while (menu < GuiaControl::kMenus && !TabRect(menu).contains(at)) ++menu;
  return menu;
}

void GuiaLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ground = ToQColor(control().BackColor());
  painter.fillRect(rect(), ground.lighter(104));
  painter.fillRect(QRectF(0, height() - 1, width(), 1), QColor(skin::kEdgeDisabled));
  for (std::size_t menu = 0; menu < GuiaControl::kMenus; ++menu) {
    const QRectF tab = TabRect(menu);
    if (tab.isEmpty()) continue;
    if (menu == hovered_) painter.fillRect(tab, QColor(skin::kAccentLight));
    painter.setPen(skin::TextColour(*this, ToQColor(control().ForeColor())));
    painter.drawText(tab, Qt::AlignCenter | Qt::TextSingleLine, ToQString(control().Guia(menu).caption));
  }
}

void GuiaLook::mouseMoveEvent(QMouseEvent* event) {
  hovered_ = TabAt(event->position());
  update();
}

void GuiaLook::leaveEvent(QEvent*) {
  hovered_ = GuiaControl::kMenus;
  update();
}

void GuiaLook::mousePressEvent(QMouseEvent* event) {
  const std::size_t menu = TabAt(event->position());
  if (event->button() != Qt::LeftButton || menu == GuiaControl::kMenus) return;
  Tell([menu](GuiaControl& bar) { bar.ClickItem(bar.Guia(menu)); },
       [menu](const GuiaControl& bar) {
         return ActLine({"clique", bar.Guia(menu).caption});
       });
  DropMenu(menu);
}

// The menu lies on its own until it is closed; an entry that went in the meantime is not chosen.
void GuiaLook::DropMenu(std::size_t menu) {
  const auto& entries = control().MenuGuia(menu);
  if (entries.empty()) return;
  auto* dropped = new QMenu(this);
  dropped->setAttribute(Qt::WA_DeleteOnClose);
  dropped->setFont(font());
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    QAction* action = dropped->addAction(ToQString(entries[entry]->caption).replace('&', "&&"));
    connect(action, &QAction::triggered, this, [this, menu, entry] {
      Tell(
          [menu, entry](GuiaControl& bar) {
            if (entry < bar.MenuGuia(menu).size()) bar.ClickItem(*bar.MenuGuia(menu)[entry]);
          },
          [menu, entry](const GuiaControl& bar) {
            const auto& items = bar.MenuGuia(menu);
            return entry < items.size() ? ActLine({"clique", items[entry]->caption}) : std::string();
          });
    });
  }
  dropped->popup(mapToGlobal(TabRect(menu).bottomLeft().toPoint()));
}

}  // namespace tessera
