#include "qt/quiet_dispatch.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QWindow>

namespace tessera {

// On X11 the window system lays input aside where it is not wanted, and under its usual event loop takes it
// up again only when something else arrives. So something does arrive: telling a title anew changes nothing
// to see, and the server answers it.
void DispatchAllButInput() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    if (window->handle() == nullptr) continue;
    window->setTitle(window->title());
    return;
  }
}

}  // namespace tessera
