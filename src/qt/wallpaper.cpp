#include "qt/wallpaper.h"

#include <QFileInfo>
#include <QStringList>
#include <QUrl>
#include <algorithm>

#include "qt/desktop_program.h"

namespace tessera {

namespace {

// OPEN: no call serves all desktops, so each is asked by its own program, and where there is none the picture
// is painted on the screen's ground.
//
// A call that sets the wallpaper: "%f" stands for the file, "%u" for its address. Desktops by the names that
// they go by in XDG_CURRENT_DESKTOP; no name is for all others.
struct WallpaperCall {
  const char* desktop;
  const char* call;
};

constexpr WallpaperCall kCalls[] = {
    {"GNOME", "gsettings set org.gnome.desktop.background picture-uri %u"},
    {"GNOME", "gsettings set org.gnome.desktop.background picture-uri-dark %u"},
    {"Unity", "gsettings set org.gnome.desktop.background picture-uri %u"},
    {"Budgie", "gsettings set org.gnome.desktop.background picture-uri %u"},
    {"Pantheon", "gsettings set org.gnome.desktop.background picture-uri %u"},
    {"X-Cinnamon", "gsettings set org.cinnamon.desktop.background picture-uri %u"},
    {"MATE", "gsettings set org.mate.background picture-filename %f"},
    {"KDE", "plasma-apply-wallpaperimage %f"},
    {"LXDE", "pcmanfm --set-wallpaper %f"},
    {"LXQt", "pcmanfm-qt --set-wallpaper %f"},
};

// Where there is no desktop one of these paints the screen's ground; the first that is there does.
constexpr const char* kPainters[] = {"feh --bg-scale %f", "xwallpaper --stretch %f", "hsetroot -fill %f"};

bool Call(const char* call, const QString& file) {
  QStringList words = QString::fromLatin1(call).split(u' ');
  words.replaceInStrings("%f", file);
  words.replaceInStrings("%u", QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
  return AskDesktop(words.takeFirst(), words).isDone;
}

// This desktop keeps a picture for each screen and work space.
bool SetInXfce(const QString& file) {
  const DesktopAnswer all = AskDesktop("xfconf-query", {"-c", "xfce4-desktop", "-l"});
  bool isSet = false;
  for (const QString& property : all.output.split(u'\n')) {
    if (!property.endsWith("/last-image")) continue;
    isSet |= AskDesktop("xfconf-query", {"-c", "xfce4-desktop", "-p", property, "-s", file}).isDone;
  }
  return isSet;
}

}  // namespace

bool SetDesktopWallpaper(const std::string& path) {
  const QString file = QString::fromStdString(path);
  if (!QFileInfo(file).isFile()) return false;
  const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
  if (desktops.contains("XFCE", Qt::CaseInsensitive)) return SetInXfce(file);
  bool isKnown = false;
  bool isSet = false;
  for (const WallpaperCall& row : kCalls) {
    if (!desktops.contains(QLatin1String(row.desktop), Qt::CaseInsensitive)) continue;
    isKnown = true;
    isSet |= Call(row.call, file);
  }
  if (isKnown) return isSet;
  return std::any_of(std::begin(kPainters), std::end(kPainters),
                     [&](const char* painter) { return Call(painter, file); });
}

}  // namespace tessera
