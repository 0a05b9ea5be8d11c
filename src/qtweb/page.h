// A page of the net, which can do nothing to the machine: it opens no window here, starts no program, and is
// given no microphone, camera or place.
#pragma once

#include <QWebEnginePage>

namespace tessera::qtweb {

class Page final : public QWebEnginePage {
 public:
  explicit Page(QWebEngineProfile& profile);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  // What a page tells its programmer is nothing to ours.
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }
};

}  // namespace tessera::qtweb
