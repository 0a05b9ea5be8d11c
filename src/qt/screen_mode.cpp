#include "qt/screen_mode.h"

#include <QGuiApplication>
#include <QProcess>

#include "text/literal.h"

namespace tessera {

// OPEN: the depth is left as it is: an X server has one depth for all its life.
std::string SetScreenMode(const VideoMode& mode) {
  constexpr int kPatience = 5000;  // milliseconds
  if (QGuiApplication::platformName() != "xcb") {
    return std::string("esta tela não deixa que um programa mude o seu modo"_w);
  }
  QProcess screen;
  screen.start("xrandr", {"--size", QString("%1x%2").arg(mode.width).arg(mode.height)});
  if (!screen.waitForStarted(kPatience)) return std::string("falta o programa xrandr"_w);
  const bool done = screen.waitForFinished(kPatience) && screen.exitStatus() == QProcess::NormalExit;
  if (done && screen.exitCode() == 0) return {};
  return std::string("a tela não tem este modo"_w);
}

}  // namespace tessera
