#include "qtweb/view.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWidget>

#include "qtweb/sandbox.h"

namespace tessera::qtweb {

View::View(QWidget& parent) : view_(new QWebEngineView(&parent)) {
  view_->setPage(&page_);
  view_->show();
  QObject::connect(&profile_, &QWebEngineProfile::downloadRequested, view_.data(),
                   [this](QWebEngineDownloadRequest* download) { AskWhereTo(*download); });
}

View::~View() {
  delete view_.data();
}

void View::Navigate(const media::Address& address) {
  const QString target = QString::fromStdString(address.target);
  page_.load(address.isFile ? QUrl::fromLocalFile(target) : QUrl::fromUserInput(target));
}

void View::GoBack() {
  page_.triggerAction(QWebEnginePage::Back);
}

void View::GoForward() {
  page_.triggerAction(QWebEnginePage::Forward);
}

void View::Stop() {
  page_.triggerAction(QWebEnginePage::Stop);
}

void View::Refresh() {
  page_.triggerAction(QWebEnginePage::Reload);
}

// The person says where a file goes, or that it goes nowhere. Nothing is opened or run.
void View::AskWhereTo(QWebEngineDownloadRequest& download) {
  const QPointer<QWebEngineDownloadRequest> waiting(&download);
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  const QString place = QFileDialog::getSaveFileName(view_, QStringLiteral("Salvar arquivo"),
                                                     QDir(folder).filePath(download.downloadFileName()));
  if (!waiting) return;
  if (place.isEmpty()) return waiting->cancel();
  waiting->setDownloadDirectory(QFileInfo(place).path());
  waiting->setDownloadFileName(QFileInfo(place).fileName());
  waiting->accept();
}

}  // namespace tessera::qtweb

// Without shared contexts, which only an application's start can have, the library would end the process.
extern "C" __attribute__((visibility("default"))) tessera::PageView* TesseraPageView(QWidget& parent) {
  if (!QCoreApplication::testAttribute(Qt::AA_ShareOpenGLContexts)) return nullptr;
  static const bool isPrepared = [] {
    tessera::qtweb::PrepareSandbox();
    return true;
  }();
  return isPrepared ? new tessera::qtweb::View(parent) : nullptr;
}
