#include "qt/tray_icon.h"

#include <QCursor>
#include <QIcon>
#include <QPixmap>

#include "qt/pictures.h"
#include "qttext/text.h"
#include "windows/stock_pictures.h"

namespace tessera {

namespace {

constexpr int kWatchInterval = 1000;  // milliseconds

QIcon IconOf(const PictureRef& picture) {
  const PictureRef shown =
      picture ? picture : StockPicture(StockKind::Figure, StockNumber(StockKind::Figure, "FigForm"));
  return QIcon(QPixmap::fromImage(ToQImage(*shown, 1)));
}

}  // namespace

std::unique_ptr<TrayIcon> TrayIcon::Show(const PictureRef& icon, std::string_view title, LogicEntry& entry,
                                         TrayEvents& events) {
  if (!QSystemTrayIcon::isSystemTrayAvailable()) return nullptr;
  return std::make_unique<TrayIcon>(icon, title, entry, events);
}

TrayIcon::TrayIcon(const PictureRef& icon, std::string_view title, LogicEntry& entry, TrayEvents& events)
    : entry_(entry), events_(events) {
  AddEntry(QStringLiteral("Mostrar a janela"), &TrayEvents::OnMenuAtivo);
  AddEntry(QStringLiteral("Sair"), &TrayEvents::OnMenuSair);
  menu_.setObjectName(QStringLiteral("MenuBarra"));
  icon_.setIcon(IconOf(icon));
  icon_.setToolTip(ToQString(title));
  icon_.setContextMenu(&menu_);
  // Any click shows the menu, not that of the second button alone.
  QObject::connect(&icon_, &QSystemTrayIcon::activated, &menu_,
                   [this](QSystemTrayIcon::ActivationReason why) {
                     if (why == QSystemTrayIcon::Trigger || why == QSystemTrayIcon::DoubleClick)
                       menu_.popup(QCursor::pos());
                   });
  icon_.show();
  watch_.callOnTimeout(&menu_, [this] { LookAfterTray(); });
  watch_.start(kWatchInterval);
}

void TrayIcon::AddEntry(const QString& text, void (TrayEvents::*act)()) {
  QObject::connect(menu_.addAction(text), &QAction::triggered, &menu_,
                   [this, act] { entry_.Enter([&events = events_, act] { (events.*act)(); }); });
}

void TrayIcon::LookAfterTray() {
  if (QSystemTrayIcon::isSystemTrayAvailable()) return;
  watch_.stop();
  icon_.hide();
  entry_.Enter([&events = events_] { events.OnTrayGone(); });
}

}  // namespace tessera
