#include "runtime/display_probe.h"

#include <dlfcn.h>

#include <cstdlib>
#include <string_view>

namespace tessera {

namespace {

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

struct xcb_connection_t;

template <typename Function>
Function* Symbol(void* library, const char* name) {
  return reinterpret_cast<Function*>(dlsym(library, name));
}

// Connects to the display as the window toolkit will. The library is loaded for the question alone.
bool XServerAnswers() {
  void* library = dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return false;
  auto* connect = Symbol<xcb_connection_t*(const char*, int*)>(library, "xcb_connect");
  auto* hasError = Symbol<int(xcb_connection_t*)>(library, "xcb_connection_has_error");
  auto* disconnect = Symbol<void(xcb_connection_t*)>(library, "xcb_disconnect");
  bool answers = false;
  if (connect != nullptr && hasError != nullptr && disconnect != nullptr) {
    xcb_connection_t* connection = connect(nullptr, nullptr);
    answers = hasError(connection) == 0;
    disconnect(connection);
  }
  dlclose(library);
  return answers;
}

}  // namespace

bool DisplayIsReachable() {
  // A platform named by hand, such as "offscreen", needs no server, and its failure is its user's to see.
  if (IsSet("QT_QPA_PLATFORM")) return true;
  return IsSet("DISPLAY") && XServerAnswers();
}

}  // namespace tessera
