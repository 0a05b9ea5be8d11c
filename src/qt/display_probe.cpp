#include "qt/display_probe.h"

#include <dlfcn.h>

#include <QFileInfo>
#include <QLibraryInfo>

namespace tessera {

namespace {

// Whether an X server answers, by the client library that the X11 platform itself uses.
bool XServerAnswers() {
  void* library = dlopen("libxcb.so.1", RTLD_LAZY);
  if (library == nullptr) return false;
  const auto connect = reinterpret_cast<void* (*)(const char*, int*)>(dlsym(library, "xcb_connect"));
  const auto hasError = reinterpret_cast<int (*)(void*)>(dlsym(library, "xcb_connection_has_error"));
  const auto disconnect = reinterpret_cast<void (*)(void*)>(dlsym(library, "xcb_disconnect"));
  bool answers = false;
  if (connect != nullptr && hasError != nullptr && disconnect != nullptr) {
    void* connection = connect(nullptr, nullptr);
    answers = hasError(connection) == 0;
    disconnect(connection);
  }
  dlclose(library);
  return answers;
}

bool HasPlatform(const char* file) {
  return QFileInfo::exists(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/" + file);
}

}  // namespace

std::string FindDisplay() {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return {};
  if (qEnvironmentVariableIsSet("DISPLAY") && HasPlatform("libqxcb.so") && XServerAnswers()) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    return {};
  }
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && HasPlatform("libqwayland-generic.so")) {
    qputenv("QT_QPA_PLATFORM", "wayland");
    return {};
  }
  return "nenhuma tela ao alcance: não há servidor X em DISPLAY nem sessão Wayland que se possa usar";
}

}  // namespace tessera
