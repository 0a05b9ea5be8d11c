#include "qtpaper/application.h"

#include <QGuiApplication>
#include <array>
#include <clocale>
#include <string>

namespace tessera::qtpaper {

namespace {

// The toolkit keeps references into its arguments.
struct Arguments {
  std::string name = "tessera";
  std::string option = "-platform";
  std::string platform = "offscreen";
  std::array<char*, 4> words = {name.data(), option.data(), platform.data(), nullptr};
  int count = 3;
};

}  // namespace

void EnsureApplication() {
  if (qApp != nullptr) return;
  // On a terminal the error stream is the program's.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  // The toolkit takes the user's setting of numbers over for the whole process.
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  static Arguments arguments;
  new QGuiApplication(arguments.count, arguments.words.data());
  std::setlocale(LC_ALL, locale.c_str());
}

}  // namespace tessera::qtpaper
