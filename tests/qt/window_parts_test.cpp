// Parts of the host with windows that need no program: the way in, dialogs, what is watched, the icon in a
// tray, the probe of the display, what an entry drops down.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTest>

#include "platform/process_end.h"
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

// Two pipes in the place of a network.
class Pipes final : public EventSource {
 public:
  Pipes() {
    EXPECT_EQ(pipe(event_), 0);
    EXPECT_EQ(pipe(send_), 0);
  }
  ~Pipes() override {
    for (const int end : {event_[0], event_[1], send_[0], send_[1]}) close(end);
  }
  Delivered DeliverNext() override {
    Take(event_[0], 'e');
    return Delivered::Event;
  }
  int EventDescriptor() const override { return event_[0]; }
  bool IsOpen() const override { return true; }
  void SendWaiting() override { Take(send_[0], 's'); }
  int SendDescriptor() const override { return send_[0]; }

  void Happen() {
    EXPECT_EQ(write(event_[1], "x", 1), 1);
    EXPECT_EQ(write(send_[1], "x", 1), 1);
  }
  std::string told;

 private:
  void Take(int end, char mark) {
    char byte = 0;
    EXPECT_EQ(read(end, &byte, 1), 1);
    told += mark;
  }

  int event_[2] = {};
  int send_[2] = {};
};

}  // namespace

TEST(LogicEntry, KnowsWhetherSomethingOfItRuns) {
  LogicEntry entry([] {});
  bool isInside = false;
  entry.Enter([&] {
    entry.Enter([] {});
    isInside = entry.IsInside();
  });
  EXPECT_TRUE(isInside);
  EXPECT_FALSE(entry.IsInside());
}

// The program may end while it waits for a person: what ends it comes out of the dialog.
TEST(QtHost, EachDialogAndWaitEndsWithTheProgram) {
  QtHost qt;
  const std::function<void()> waits[] = {
      [&] { qt.ShowBox({.text = "a", .title = "b"}); },
      [&] { qt.AskText({}); },
      [&] { qt.AskFile({}); },
      [&] { qt.AskColour("cor"); },
      [&] { qt.AskFont("letra"); },
      [&] { qt.AskPrinter("impressora"); },
      [&] { qt.ServeEvents(); },
      [&] { QTest::qWait(80), qt.ProcessEvents(); },
      [&] {
        for (;;) qt.AwaitNextEvents();
      },
  };
  for (std::size_t i = 0; i < std::size(waits); ++i) {
    QTimer::singleShot(40, qApp, [&] { qt.Post([] { throw ProcessEnd{}; }); });
    EXPECT_THROW(waits[i](), ProcessEnd) << i;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << i;
    // It may have ended in a pause before.
    qt.Post([] { throw ProcessEnd{}; });
    qt.Pause(std::chrono::milliseconds(100));
    EXPECT_THROW(waits[i](), ProcessEnd) << i;
  }
}

TEST(QtHost, AWatchedSourceIsServedUntilItIsWatchedNoMore) {
  QtHost qt;
  Pipes network;
  qt.Watch(&network);
  network.Happen();
  EXPECT_TRUE(QTest::qWaitFor([&] { return network.told.size() == 2; }));
  EXPECT_EQ(network.told.find_first_not_of("es"), std::string::npos);
  qt.Watch(nullptr);
  network.Happen();
  QTest::qWait(20);
  EXPECT_EQ(network.told.size(), 2U);
}

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
