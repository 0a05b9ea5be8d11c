#include "qt/qt_host.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QDialog>
#include <QEventLoop>
#include <QFontDatabase>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <array>
#include <iostream>
#include <thread>
#include <utility>

#include "platform/termination.h"
#include "qt/boxes.h"
#include "qt/desktop_dialogs.h"
#include "qt/form.h"
#include "qt/language.h"
#include "qt/messages.h"
#include "qt/quiet_dispatch.h"
#include "qt/screen_mode.h"
#include "qt/tray_icon.h"
#include "qt/wallpaper.h"
#include "qttext/fonts.h"
#include "qttext/text.h"
#include "text/code_page.h"

namespace tessera {

namespace {

// A timer whose ticks enter the logic one by one. The tick is posted, not run in the timer's own slot, for a
// timer is not entered again while its slot runs, and a tick that yields lets the next one in.
class TickSource final : public Timer {
 public:
  TickSource(LogicEntry& entry, std::chrono::milliseconds interval, std::function<void()> tick)
      : shared_(std::make_shared<Shared>(Shared{entry, std::move(tick)})), timer_(new QTimer) {
    timer_->setTimerType(Qt::PreciseTimer);
    timer_->callOnTimeout(timer_, [timer = timer_, shared = shared_] {
      if (std::exchange(shared->waiting, true)) return;
      QMetaObject::invokeMethod(
          timer, [shared] { Post(shared); }, Qt::QueuedConnection);
    });
    timer_->start(interval);
  }
  // A tick may end its own timer, so the object goes later.
  ~TickSource() override {
    shared_->ended = true;
    timer_->stop();
    timer_->deleteLater();
  }
  TickSource(const TickSource&) = delete;
  TickSource& operator=(const TickSource&) = delete;

 private:
  struct Shared {
    LogicEntry& entry;
    std::function<void()> tick;
    bool waiting = false;  // a tick is posted and has not begun: further ones merge into it
    bool ended = false;
  };

  // Behind the timer's end the host itself may be gone.
  static void Post(const std::shared_ptr<Shared>& shared) {
    if (!shared->ended) shared->entry.Enter([shared] { Tick(*shared); });
  }

  static void Tick(Shared& shared) {
    shared.waiting = false;
    if (!shared.ended) shared.tick();
  }

  std::shared_ptr<Shared> shared_;
  QTimer* timer_;
};

}  // namespace

// The window system sees the program's name alone: what follows is the program's own command line.
struct ApplicationArguments {
  std::array<char, 8> name = {"tessera"};
  std::array<char*, 2> texts = {name.data(), nullptr};
  int count = 1;
};

QtHost::QtHost(std::function<void()> refused, bool showsPages) : entry_([this] { LeaveLoops(); }) {
  InstallMessages();
  SubstituteFontNames();
  if (qApp == nullptr) {
    const GuardedStart start(std::move(refused));
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, showsPages);
    arguments_ = std::make_unique<ApplicationArguments>();
    application_ = std::make_unique<QApplication>(arguments_->count, arguments_->texts.data());
  }
  portuguese_ = InstallPortuguese();
  QApplication::setQuitOnLastWindowClosed(false);
  serving_ = std::make_unique<QEventLoop>();
  posted_ = std::make_unique<QObject>();
  if (showsPages) paintRest_ = kMovingRest;
  ServeTermination();
}

QtHost::~QtHost() = default;

// The wish comes once, as a person's closing of the main window.
void QtHost::ServeTermination() {
  if (termination::Descriptor() < 0) return;
  termination_ = std::make_unique<QSocketNotifier>(termination::Descriptor(), QSocketNotifier::Read);
  QObject::connect(termination_.get(), &QSocketNotifier::activated, termination_.get(), [this] {
    termination_->setEnabled(false);
    entry_.Enter([this] {
      if (mainForm_ != nullptr) mainForm_->Events().OnClose();
    });
  });
}

// Where a person clicks the window system finds the window by itself.
std::unique_ptr<Form> QtHost::NewMainForm(const Placement& place, FormEvents& events,
                                          const WindowDirectory&) {
  auto form =
      std::make_unique<QtForm>("Janela", place, events, FormSurroundings{painter_, entry_, front_, drawn_});
  mainForm_ = form.get();
  return form;
}

std::unique_ptr<Form> QtHost::NewForm(std::string_view name, const Placement& place, FormEvents& events) {
  return std::make_unique<QtForm>(ToQString(name), place, events,
                                  FormSurroundings{painter_, entry_, front_, drawn_});
}

std::unique_ptr<QtForm> QtHost::NewLedForm(std::string_view name, const Placement& place, FormEvents& events,
                                           StageLead& lead) {
  entry_.Close();
  return std::make_unique<QtForm>(ToQString(name), place, events,
                                  FormSurroundings{painter_, entry_, front_, drawn_, &lead});
}

void QtHost::ServePainting() {
  ShowDrawn();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtHost::ShowPointer(bool visible) {
  QGuiApplication::restoreOverrideCursor();
  if (!visible) QGuiApplication::setOverrideCursor(Qt::BlankCursor);
}

PointerPlace QtHost::Pointer() {
  const QPoint at = QCursor::pos();
  return {double(at.x()), double(at.y())};
}

std::string QtHost::SetVideoMode(const VideoMode& mode) {
  return SetScreenMode(mode);
}

bool QtHost::SetWallpaper(const std::string& bitmap) {
  return SetDesktopWallpaper(bitmap);
}

bool QtHost::ShowTrayIcon(const PictureRef& icon, std::string_view title, TrayEvents& events) {
  tray_ = TrayIcon::Show(icon, title, entry_, events);
  return tray_ != nullptr;
}

void QtHost::OpenAddress(std::string_view address) {
  QDesktopServices::openUrl(QUrl::fromUserInput(ToQString(address)));
}

ScreenSize QtHost::ScreenExtent() {
  const QSize size = QGuiApplication::primaryScreen()->size();
  return {TwipsOfPixels(size.width()), TwipsOfPixels(size.height())};
}

std::vector<std::string> QtHost::FontNames() {
  std::vector<std::string> names;
  for (const QString& family : QFontDatabase::families()) names.push_back(FromQString(family));
  return names;
}

void QtHost::TellPlaces(std::function<std::string(std::string_view)> placeOf, bool boxesToo) {
  placeOf_ = std::move(placeOf);
  boxPlacesAreTold_ = boxesToo;
}

// With windows an abandoned run is silent, unless somebody wants to know its place.
void QtHost::TellAbandonedRun(std::string_view position, std::string_view description) {
  TellFailure("falha", position, description);
}

void QtHost::TellFailure(std::string_view what, std::string_view position, std::string_view description) {
  if (!placeOf_) return;
  std::cerr << "[" << what << "] " << placeOf_(position) << ": " << ToUtf8(description) << std::endl;
}

// An entry that was held until now may have thrown already.
void QtHost::ServeEvents() {
  entry_.Rethrow();
  serving_->exec();
  entry_.Rethrow();
}

// What ended the program comes before a dialog, and behind one that it ended.
template <typename Dialog>
auto QtHost::Ask(Dialog dialog) {
  entry_.Rethrow();
  auto answer = dialog(BoxParent());
  entry_.Rethrow();
  return answer;
}

BoxAnswer QtHost::ShowBox(const Box& box) {
  return Ask([&](QWidget* parent) {
    if (const std::string place = boxPlacesAreTold_ ? placeOf_(box.text) : std::string(); !place.empty())
      std::cerr << "em " << place << std::endl;
    return ShowMessageBox(box, parent);
  });
}

TextInputAnswer QtHost::AskText(const TextInput& input) {
  return Ask([&](QWidget* parent) { return ShowEntraTxt(input, parent); });
}

std::optional<std::string> QtHost::AskFile(const FileRequest& request) {
  return Ask([&](QWidget* parent) { return ShowFileDialog(request, parent); });
}

std::optional<std::int32_t> QtHost::AskColour(std::string_view title) {
  return Ask([&](QWidget* parent) { return ShowColourDialog(title, parent); });
}

std::optional<ChosenFont> QtHost::AskFont(std::string_view title) {
  return Ask([&](QWidget* parent) { return ShowFontDialog(title, parent); });
}

std::optional<std::string> QtHost::AskPrinter(std::string_view title) {
  return Ask([&](QWidget* parent) { return ShowPrinterDialog(title, parent); });
}

QWidget* QtHost::BoxParent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  const auto windows = QApplication::topLevelWidgets();
  const auto shown = std::find_if(windows.begin(), windows.end(), [](QWidget* w) { return w->isVisible(); });
  return shown == windows.end() ? nullptr : *shown;
}

// Widgets that went inside an event of theirs have waited for an end of it.
void QtHost::ProcessEvents() {
  if (!entry_.IsInside()) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
  // Ticks that fell due in that pass were posted behind it.
  QCoreApplication::sendPostedEvents();
  entry_.Rethrow();
}

bool QtHost::AwaitEvents(std::chrono::milliseconds sleep) {
  Pause(sleep);
  ProcessEvents();
  return true;
}

// Rests in the window system, and costs nothing until it wakes.
bool QtHost::AwaitNextEvents() {
  entry_.Rethrow();
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QCoreApplication::sendPostedEvents();
  entry_.Rethrow();
  return true;
}

// A short sleep is one; in a long one the windows go on being painted, and nothing reaches the logic.
void QtHost::Pause(std::chrono::milliseconds time) {
  using Steady = std::chrono::steady_clock;
  const auto end = Steady::now() + time;
  if (time > paintRest_) {
    const LogicEntry::Hold hold(entry_);
    for (auto now = Steady::now(); now < end && !termination::IsAsked(); now = Steady::now()) {
      DispatchAllButInput();
      std::this_thread::sleep_for(std::min<Steady::duration>(end - Steady::now(), paintRest_));
    }
  } else {
    std::this_thread::sleep_until(end);
  }
}

void QtHost::ShowDrawn() {
  for (SurfacePane* pane : std::exchange(drawn_, {})) pane->ShowDrawn();
}

// Each pass of the window system's dispatch lets one event in; what waits longer is told again by the next
// pass.
void QtHost::Watch(EventSource* source) {
  happening_.reset();
  sendable_.reset();
  if (source == nullptr) return;
  happening_ = std::make_unique<QSocketNotifier>(source->EventDescriptor(), QSocketNotifier::Read);
  QObject::connect(happening_.get(), &QSocketNotifier::activated, happening_.get(), [this, source] {
    if (!entry_.IsHeld()) entry_.Enter([source] { source->DeliverNext(); });
  });
  sendable_ = std::make_unique<QSocketNotifier>(source->SendDescriptor(), QSocketNotifier::Read);
  QObject::connect(sendable_.get(), &QSocketNotifier::activated, sendable_.get(),
                   [source] { source->SendWaiting(); });
}

void QtHost::Post(std::function<void()> act) {
  QMetaObject::invokeMethod(
      posted_.get(), [this, act = std::move(act)] { entry_.Enter(act); }, Qt::QueuedConnection);
}

std::chrono::milliseconds QtHost::DispatchTime() {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start_);
}

std::unique_ptr<Timer> QtHost::StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) {
  return std::make_unique<TickSource>(entry_, interval, std::move(tick));
}

// Ends modal boxes, and the serving loop where it runs.
void QtHost::LeaveLoops() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->reject();
  }
  serving_->quit();
}

}  // namespace tessera
