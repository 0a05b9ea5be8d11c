#include "qt/qt_author.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <utility>
#include <vector>

#include "platform/termination.h"
#include "qt/qt_host.h"

namespace tessera {

QtAuthor::QtAuthor(QtHost& host, bool tellsMoves) : host_(host), tellsMoves_(tellsMoves) {
  host_.TellActs([this](PersonAct act) { Take(std::move(act)); });
}

Dialogs& QtAuthor::Answers() {
  return host_;
}

void QtAuthor::Take(PersonAct act) {
  const bool isIdle = act.line.starts_with("mouse ") && QGuiApplication::mouseButtons() == Qt::NoButton;
  if (tellsMoves_ || !isIdle) acts_.push_back(std::move(act));
}

// Rests in the window system until there is something to tell.
std::optional<PersonAct> QtAuthor::NextAct(std::optional<Milliseconds> within, std::span<const int> wakes) {
  bool isOver = false;
  QTimer timer;
  timer.setSingleShot(true);
  timer.setTimerType(Qt::PreciseTimer);
  timer.callOnTimeout([&] { isOver = true; });
  if (within) timer.start(*within);
  std::vector<std::unique_ptr<QSocketNotifier>> notifiers;
  const auto wakeBy = [&](int descriptor) {
    if (descriptor < 0) return;
    auto& notifier =
        notifiers.emplace_back(std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read));
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [&] { isOver = true; });
  };
  wakeBy(termination::Descriptor());
  for (const int wake : wakes) wakeBy(wake);
  host_.ServePainting();
  while (acts_.empty() && !isOver) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  if (acts_.empty()) return std::nullopt;
  PersonAct act = std::move(acts_.front());
  acts_.pop_front();
  return act;
}

void QtAuthor::Rest(Milliseconds time) {
  QEventLoop resting;
  QTimer::singleShot(time, Qt::PreciseTimer, &resting, &QEventLoop::quit);
  QSocketNotifier termination(std::max(termination::Descriptor(), 0), QSocketNotifier::Read);
  termination.setEnabled(termination::Descriptor() >= 0);
  QObject::connect(&termination, &QSocketNotifier::activated, &resting, &QEventLoop::quit);
  host_.ServePainting();
  resting.exec();
}

}  // namespace tessera
