#include "qt/display_probe.h"

#include <dlfcn.h>

#include <QFileInfo>
#include <QLibraryInfo>

namespace tessera {

namespace {

constexpr const char* kPlatformVariable = "QT_QPA_PLATFORM";

bool HasPlatform(const char* file) {
  return QFileInfo::exists(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/" + file);
}

template <typename Function>
Function* Symbol(void* library, const char* name) {
  return reinterpret_cast<Function*>(dlsym(library, name));
}

}  // namespace

DisplayProbe::DisplayProbe() {
  if (qEnvironmentVariableIsSet(kNoDisplayVariable)) {
    qunsetenv(kNoDisplayVariable);
    problem_ = "a tela não aceitou o programa";
    return;
  }
  if (!qEnvironmentVariableIsEmpty(kPlatformVariable)) return;
  if (qEnvironmentVariableIsSet("DISPLAY") && HasPlatform("libqxcb.so") && XServerAnswers()) {
    qputenv(kPlatformVariable, "xcb");
  } else if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && HasPlatform("libqwayland-generic.so")) {
    qputenv(kPlatformVariable, "wayland");
  } else {
    problem_ = "nenhuma tela ao alcance: não há servidor X em DISPLAY nem sessão Wayland que se possa usar";
  }
}

DisplayProbe::~DisplayProbe() {
  if (connection_ != nullptr) Symbol<void(void*)>(library_, "xcb_disconnect")(connection_);
  if (library_ != nullptr) dlclose(library_);
}

bool DisplayProbe::XServerAnswers() {
  library_ = dlopen("libxcb.so.1", RTLD_LAZY);
  if (library_ == nullptr) return false;
  const auto connect = Symbol<void*(const char*, int*)>(library_, "xcb_connect");
  const auto hasError = Symbol<int(void*)>(library_, "xcb_connection_has_error");
  if (connect == nullptr || hasError == nullptr || Symbol<void(void*)>(library_, "xcb_disconnect") == nullptr)
    return false;
  connection_ = connect(nullptr, nullptr);
  return hasError(connection_) == 0;
}

}  // namespace tessera
