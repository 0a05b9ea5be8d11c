// The view of pages on one control.
#pragma once

#include <QPointer>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "qt/page_view.h"
#include "qtweb/page.h"

class QWebEngineDownloadRequest;

namespace tessera::qtweb {

class View final : public PageView {
 public:
  explicit View(QWidget& parent);
  ~View() override;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  QWidget& Widget() override { return *view_; }
  void Navigate(const media::Address& address) override;
  void GoBack() override;
  void GoForward() override;
  void Stop() override;
  void Refresh() override;

 private:
  void AskWhereTo(QWebEngineDownloadRequest& download);

  QPointer<QWebEngineView> view_;  // goes with its parent
  QWebEngineProfile profile_;      // of its own, and in memory alone: pages leave nothing on the disk
  Page page_{profile_};            // gone before its profile
};

}  // namespace tessera::qtweb
