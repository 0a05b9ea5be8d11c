// The program's icon in the desktop's tray, with its menu.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>
#include <memory>
#include <string_view>

#include "qt/logic_entry.h"
#include "windows/picture.h"
#include "windows/screen.h"

namespace tessera {

class TrayIcon {
 public:
  // Null where there is no tray. A program without an icon gets one of the stock.
  static std::unique_ptr<TrayIcon> Show(const PictureRef& icon, std::string_view title, LogicEntry& entry,
                                        TrayEvents& events);

  TrayIcon(const PictureRef& icon, std::string_view title, LogicEntry& entry, TrayEvents& events);
  TrayIcon(const TrayIcon&) = delete;
  TrayIcon& operator=(const TrayIcon&) = delete;

 private:
  void AddEntry(const QString& text, void (TrayEvents::*act)());
  void LookAfterTray();

  LogicEntry& entry_;
  TrayEvents& events_;
  QMenu menu_;
  QSystemTrayIcon icon_;
  // The toolkit tells nobody that a tray has gone.
  QTimer watch_;
};

}  // namespace tessera
