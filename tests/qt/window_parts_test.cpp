// Parts of the host with windows that need no program: the icon in a tray, the probe of the display, what an
// entry drops down.
#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTest>

#include "qt/display_probe.h"
#include "qt/looks/dropped_view.h"
#include "qt/tray_icon.h"
#include "support/qt_window.h"

namespace tessera::test {

namespace {

class RecordedTray final : public TrayEvents {
 public:
  void OnMenuAtivo() override { told += "shown "; }
  void OnMenuSair() override { told += "left "; }
  void OnTrayGone() override { told += "gone"; }
  std::string told;
};

}  // namespace

// The offscreen platform has no tray: the icon is told so, once.
TEST(TrayIcon, ItsMenuActsAndATrayThatGoesIsTold) {
  QtHost qt;
  LogicEntry entry([] {});
  RecordedTray events;
  EXPECT_EQ(TrayIcon::Show(nullptr, "Nota", entry, events), nullptr);
  const TrayIcon icon(nullptr, "Nota", entry, events);
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() != "MenuBarra") continue;
    for (QAction* action : widget->actions()) action->trigger();
  }
  EXPECT_EQ(events.told, "shown left ");
  QTest::qWait(2300);
  EXPECT_EQ(events.told, "shown left gone");
}

TEST(DisplayProbe, KeepsWhatIsChosenAndTellsWhyThereIsNone) {
  const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
  EXPECT_EQ(DisplayProbe().problem(), "") << "the platform is chosen";
  qputenv(kNoDisplayVariable, "1");
  EXPECT_EQ(DisplayProbe().problem(), "a tela não aceitou o programa");
  EXPECT_FALSE(qEnvironmentVariableIsSet(kNoDisplayVariable)) << "the next one is asked anew";
  const QByteArray display = qgetenv("DISPLAY");
  qunsetenv("DISPLAY");
  qunsetenv("WAYLAND_DISPLAY");
  qputenv("QT_QPA_PLATFORM", "");
  EXPECT_TRUE(DisplayProbe().problem().starts_with("nenhuma tela ao alcance"));
  EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "");
  qputenv("QT_QPA_PLATFORM", chosen);
  if (!display.isEmpty()) qputenv("DISPLAY", display);
}

// The entry is told of a close by the person alone, also behind one by the program.
TEST(DroppedView, TellsThatThePersonTurnedElsewhere) {
  QtHost qt;
  QWidget entry;
  entry.resize(80, 20);
  entry.show();
  int closed = 0;
  DroppedView view(entry, [&] { ++closed; });
  view.Open({80, 60});
  view.Close();
  EXPECT_EQ(closed, 0);
  view.Open({80, 60});
  view.hide();
  EXPECT_EQ(closed, 1);
}

}  // namespace tessera::test
