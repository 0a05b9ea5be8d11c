#include "qt/messages.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace tessera {

namespace {

constexpr std::array<std::string_view, 9> kHarmless = {
    "This plugin does not support",  // what a screen in memory has no use for
    "QStandardPaths: XDG_RUNTIME_DIR not set",
    "QStandardPaths: runtime directory",
    "QStandardPaths: wrong permissions on runtime directory",
    "Could not find the Qt platform plugin \"wayland\"",
    "Sandboxing disabled by user",
    "WebEngineContext used before",                    // it is made when a program first shows a page
    "PulseAudioService: pa_context_connect() failed",  // a machine without a sound server
    "Warning: \"Failed to connect: Connection refused\"",
};

}  // namespace

GuardedStart* GuardedStart::current_ = nullptr;

void InstallMessages() {
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
    const std::string text = message.toStdString();
    GuardedStart* const start = GuardedStart::current_;
    if (type == QtFatalMsg && start != nullptr && start->refused_) start->refused_();
    const bool isHarmless = std::any_of(kHarmless.begin(), kHarmless.end(),
                                        [&](std::string_view begin) { return text.starts_with(begin); });
    if (isHarmless) return;
    if (start != nullptr) {
      start->kept_ += text + "\n";
    } else {
      std::fprintf(stderr, "%s\n", text.c_str());
    }
  });
}

GuardedStart::GuardedStart(std::function<void()> refused) : refused_(std::move(refused)) {
  current_ = this;
}

GuardedStart::~GuardedStart() {
  current_ = nullptr;
  std::fputs(kept_.c_str(), stderr);
}

}  // namespace tessera
