#include "qt/sys_menu_view.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QWidget>
#include <QWindow>

#include "qttext/text.h"
#include "windows/sys_menu.h"

namespace tessera {

namespace {

void DoAct(SysMenuAct act, Form& form, QWidget& widget) {
  switch (act) {
    case SysMenuAct::Restore:
      return form.SetState(WindowState::Normal);
    case SysMenuAct::Move:
      return form.DragForm();
    case SysMenuAct::Size:
      widget.windowHandle()->startSystemResize(Qt::BottomEdge | Qt::RightEdge);
      return;
    case SysMenuAct::Minimise:
      return form.SetState(WindowState::Minimised);
    case SysMenuAct::Maximise:
      return form.SetState(WindowState::Maximised);
    case SysMenuAct::Close:
      widget.close();
      return;
  }
}

}  // namespace

void PopUpSysMenu(Form& form, QWidget& widget) {
  const std::vector<SysMenuEntry> entries = SysMenuOf(form);
  if (entries.empty() || !form.Visible()) return;
  auto* menu = new QMenu(&widget);
  menu->setObjectName("MenuSistema");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const SysMenuEntry& entry : entries) {
    if (entry.act == SysMenuAct::Close) menu->addSeparator();
    QAction* action = menu->addAction(ToQString(entry.label));
    action->setEnabled(entry.enabled);
    QObject::connect(action, &QAction::triggered, &widget,
                     [&form, &widget, act = entry.act] { DoAct(act, form, widget); });
  }
  menu->popup(QCursor::pos());
}

}  // namespace tessera
