// A program on real windows: what stands there, and acts that wait for it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>

#include "qt/form.h"
#include "qt/looks/look.h"
#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"

namespace tessera::test {

// The window of that name that is shown; null where none is.
inline QWidget* WidgetNamed(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return widget;
  }
  return nullptr;
}

// For the eye: keeps a picture where TESSERA_LOOK_AT names a folder.
inline void KeepLook(const QImage& picture, const std::string& name) {
  if (const char* folder = std::getenv("TESSERA_LOOK_AT")) {
    picture.save(QString::fromStdString(std::string(folder) + "/" + name + ".png"));
  }
}

enum class Waits { UntilShown, UntilActive };

// Does `act` with the window of that name as soon as it is shown or active, and `ready`; the test fails where
// it never is.
template <typename Window = QWidget, Waits kWaits = Waits::UntilActive>
class When {
 public:
  When(
      const char* name, std::function<void(Window&)> act, std::function<bool()> ready = [] { return true; }) {
    timer_.callOnTimeout([this, name, act = std::move(act), ready = std::move(ready)] {
      auto* window = qobject_cast<Window*>(WidgetNamed(name));
      if (window == nullptr || done_ || !ready()) return;
      if (kWaits == Waits::UntilActive && !window->isActiveWindow()) return;
      done_ = true;
      timer_.stop();
      act(*window);
    });
    timer_.start(5);
  }
  ~When() { EXPECT_TRUE(done_) << "the window was never shown"; }

 private:
  QTimer timer_;
  bool done_ = false;
};

class QtWindowTest : public testing::Test {
 protected:
  // Runs a program to its end, and leaves its windows open.
  void Start(std::string_view source, std::string_view routines = {}) {
    ASSERT_EQ(program.Start(source, routines), RunOutcome::Ended);
    qt.ProcessEvents();
  }

  Form& Main() { return program.janela.windows().MainWindow(); }
  QWindow* Top() { return static_cast<QtForm&>(Main()).widget()->windowHandle(); }
  Control& Element(std::string_view array, int index) { return *Main().Controls().Element(array, index); }
  static QWidget& WidgetOf(const Control& control) {
    return static_cast<LookView&>(*control.View()).Widget();
  }
  static QPoint InWindow(QWidget& widget, QPoint at) { return widget.mapTo(widget.window(), at); }

  QtHost qt;
  RecordedBoxes boxes;
  const Host host = qt.host();
  HostedProgram program{{boxes, qt, host.clock, host.random, host.files}, qt};
};

}  // namespace tessera::test
