// The host with windows: the window system's application, event dispatch, timers and boxes.
// A main asks the `DisplayProbe` (display_probe.h) before it makes one.
#pragma once

#include <chrono>
#include <memory>

#include "media/media_host.h"
#include "platform/host.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "qt/form.h"
#include "qt/logic_entry.h"
#include "qttext/qt_text_painter.h"
#include "windows/display.h"

class QApplication;
class QEventLoop;
class QObject;
class QSocketNotifier;
class QTranslator;
class QWidget;

namespace tessera {

struct ApplicationArguments;
class TrayIcon;

class QtHost final : public Display, public Dialogs, public EventDispatch, public media::MediaHost {
 public:
  // Starts the window system, unless the process has started it already. A display that refuses it calls
  // `refused`, which must not return: the window system would end the process. A program that shows pages of
  // the net must say so: what they need costs some of the start.
  explicit QtHost(std::function<void()> refused = {}, bool showsPages = false);
  ~QtHost() override;

  // What a `Run` is made with.
  Host host() { return {*this, *this, clock_, random_, files_}; }

  std::unique_ptr<Form> NewMainForm(const Placement& place, FormEvents& events,
                                    const WindowDirectory& windows) override;
  std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place, FormEvents& events) override;
  // A window that an event script leads. Behind the first one nothing that a person does reaches the program.
  std::unique_ptr<QtForm> NewLedForm(std::string_view name, const Placement& place, FormEvents& events,
                                     StageLead& lead);
  // The person writes the script that leads the windows: what is done there is told, and nothing of it
  // enters.
  void TellActs(std::function<void(PersonAct)> author) { entry_.TellActs(std::move(author)); }
  // Shows what has changed, and lets go what has waited for the end of an event.
  void ServePainting();
  void ShowPointer(bool visible) override;
  PointerPlace Pointer() override;
  std::string SetVideoMode(const VideoMode& mode) override;
  bool SetWallpaper(const std::string& bitmap) override;
  bool ShowTrayIcon(const PictureRef& icon, std::string_view title, TrayEvents& events) override;
  void OpenAddress(std::string_view address) override;
  ScreenSize ScreenExtent() override;
  std::vector<std::string> FontNames() override;
  void TellAbandonedRun(std::string_view position, std::string_view description) override;
  // Tells a failure on stderr, behind its place; `what`, in UTF-8, says what it ended.
  void TellFailure(std::string_view what, std::string_view position, std::string_view description);
  void ServeEvents() override;

  // Tells places of the program on stderr: `placeOf` gives the "file:line" that a text speaks of. An
  // abandoned run is told there, and, with `boxesToo`, the places that boxes name.
  void TellPlaces(std::function<std::string(std::string_view)> placeOf, bool boxesToo);

  BoxAnswer ShowBox(const Box& box) override;
  TextInputAnswer AskText(const TextInput& input) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  std::optional<std::int32_t> AskColour(std::string_view title) override;
  std::optional<ChosenFont> AskFont(std::string_view title) override;
  std::optional<std::string> AskPrinter(std::string_view title) override;

  bool Plays() const override { return true; }
  void TellPlaying(std::string_view) override { paintRest_ = kMovingRest; }

  void ProcessEvents() override;
  bool AwaitEvents(std::chrono::milliseconds sleep) override;
  bool AwaitNextEvents() override;
  void Pause(std::chrono::milliseconds time) override;
  void ShowDrawn() override;
  void Watch(EventSource* source) override;
  void Post(std::function<void()> act) override;
  std::chrono::milliseconds DispatchTime() override;
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override;

 private:
  void LeaveLoops();
  void ServeTermination();
  QWidget* BoxParent() const;
  template <typename Dialog>
  auto Ask(Dialog dialog);

  // The window system keeps references into its arguments.
  std::unique_ptr<ApplicationArguments> arguments_;
  std::unique_ptr<QApplication> application_;
  std::unique_ptr<QTranslator> portuguese_;
  std::unique_ptr<QEventLoop> serving_;
  std::unique_ptr<QSocketNotifier> termination_;
  // Of the source outside, where there is one.
  std::unique_ptr<QSocketNotifier> happening_;
  std::unique_ptr<QSocketNotifier> sendable_;
  Form* mainForm_ = nullptr;
  LogicEntry entry_;
  QtTextPainter painter_;
  FrontWatch front_;
  DrawnPanes drawn_;
  std::unique_ptr<TrayIcon> tray_;
  // How long a sleeping program rests between two paintings. What moves by itself wants to be painted often.
  static constexpr std::chrono::milliseconds kStillRest{50};
  static constexpr std::chrono::milliseconds kMovingRest{5};
  std::chrono::milliseconds paintRest_ = kStillRest;
  std::unique_ptr<QObject> posted_;  // takes what other threads post; it goes with the host
  std::function<std::string(std::string_view)> placeOf_;
  bool boxPlacesAreTold_ = false;
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  SystemClock clock_;
  SeededRandom random_;
  SystemFiles files_;
};

}  // namespace tessera
