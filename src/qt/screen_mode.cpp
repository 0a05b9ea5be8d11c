#include "qt/screen_mode.h"

#include <QGuiApplication>

#include "qt/desktop_program.h"
#include "text/literal.h"

namespace tessera {

// OPEN: the depth is left as it is: an X server has one depth for all its life.
std::string SetScreenMode(const VideoMode& mode) {
  if (QGuiApplication::platformName() != "xcb") {
    return std::string("esta tela não deixa que um programa mude o seu modo"_w);
  }
  const DesktopAnswer answer =
      AskDesktop("xrandr", {"--size", QString("%1x%2").arg(mode.width).arg(mode.height)});
  if (answer.isDone) return {};
  return std::string(answer.isThere ? "a tela não tem este modo"_w : "falta o programa xrandr"_w);
}

}  // namespace tessera
