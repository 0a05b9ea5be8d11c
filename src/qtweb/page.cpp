#include "qtweb/page.h"

#include <QDesktopServices>
#include <QUrl>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

namespace tessera::qtweb {

namespace {

bool IsOfTheNet(const QUrl& url) {
  return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

}  // namespace

Page::Page(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
  settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
  // A new window is one of the desktop's own browser, where the person asked for it.
  connect(this, &QWebEnginePage::newWindowRequested, this, [](const QWebEngineNewWindowRequest& request) {
    if (request.isUserInitiated() && IsOfTheNet(request.requestedUrl()))
      QDesktopServices::openUrl(request.requestedUrl());
  });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
  connect(
      this, &QWebEnginePage::renderProcessTerminated, this,
      [this](RenderProcessTerminationStatus status, int) {
        if (status == NormalTerminationStatus) return;
        setHtml(QStringLiteral("<meta charset=utf-8><p>A página parou de funcionar. Abra-a de novo.</p>"));
      });
}

// A letter is written with the desktop's own program.
bool Page::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
  if (url.scheme() == QLatin1String("mailto")) {
    if (type == NavigationTypeLinkClicked) QDesktopServices::openUrl(url);
    return false;
  }
  return QWebEnginePage::acceptNavigationRequest(url, type, isMainFrame);
}

}  // namespace tessera::qtweb
