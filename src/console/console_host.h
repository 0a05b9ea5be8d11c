// The console host: windows in memory, or on another stage, prints on the output, boxes on the error stream,
// answers and events from one script on the input. No display library is reached from here.
// The script's lines are read in event_script.h; what they do to the windows is told here.
#pragma once

#include <chrono>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "console/event_script.h"
#include "console/part_texts.h"
#include "console/posted_acts.h"
#include "console/script_input.h"
#include "console/script_time.h"
#include "media/media_host.h"
#include "platform/host.h"
#include "platform/process_end.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "reports/paper_part.h"
#include "reports/report_host.h"
#include "windows/display.h"
#include "windows/picture_codec.h"
#include "windows/script_author.h"
#include "windows/stage.h"

namespace tessera {

struct ConsoleStreams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  // The input's file descriptor, where it has one: a wait for its lines ends when the system ends the
  // process.
  std::optional<int> descriptor = {};
  // A person types there: waits don't block for a line, timers keep real time.
  bool isTerminal = false;
};

class Recording;

struct ConsoleOptions {
  std::string programTitle = {};  // boxes of this title go without it
  bool answerCancel = false;      // boxes of OK and Cancel are answered Cancel
  // The "file:line" that a text speaks of; told below it. Empty where nobody reads along.
  std::function<std::string(std::string_view)> placeOf = {};
  // Where the windows stand; null for the host's own memory.
  Stage* stage = nullptr;
  // The script is written by a person on that stage while it is played; null for one on the input.
  Recording* recording = nullptr;
  // Paints texts on surfaces, loaded when the first is printed; it outlives the host. Without it they leave
  // no pixels.
  reports::PaperPart* paper = nullptr;
  // Asked at the first portrait.
  PictureCodecFinder findCodec = NoPictureCodec;
};

inline constexpr int kFaultyScriptStatus = 3;

class Control;

class ConsoleHost final : public Display,
                          public Dialogs,
                          public EventDispatch,
                          public reports::ReportHost,
                          public media::MediaHost,
                          private StageLead,
                          private Person {
 public:
  ConsoleHost(const ConsoleStreams& streams, ConsoleOptions options);
  ~ConsoleHost() override;

  // What a `Run` is made with.
  Host host() { return {*this, *this, clock_, random_, files_}; }

  std::unique_ptr<Form> NewMainForm(const Placement& place, FormEvents& events,
                                    const WindowDirectory& windows) override;
  std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place, FormEvents& events) override;
  void ShowPointer(bool) override {}
  PointerPlace Pointer() override;
  std::string SetVideoMode(const VideoMode& mode) override;
  bool ShowTrayIcon(const PictureRef&, std::string_view, TrayEvents&) override { return true; }
  ScreenSize ScreenExtent() override;
  std::vector<std::string> FontNames() override;
  void TellAbandonedRun(std::string_view position, std::string_view description) override;
  // Tells a failure; `what`, in UTF-8, says what it ended.
  void TellFailure(std::string_view what, std::string_view position, std::string_view description);
  void ServeEvents() override;

  BoxAnswer ShowBox(const Box& box) override;
  TextInputAnswer AskText(const TextInput& input) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  std::optional<std::int32_t> AskColour(std::string_view title) override;
  std::optional<ChosenFont> AskFont(std::string_view title) override;
  std::optional<std::string> AskPrinter(std::string_view title) override;

  void TellPage(std::string_view label) override;
  void TellPrinted(std::string_view destination, int pages) override;

  void TellPlaying(std::string_view file) override;
  void TellAddress(std::string_view address) override;

  void ProcessEvents() override;
  bool AwaitEvents(std::chrono::milliseconds sleep) override;
  bool AwaitNextEvents() override;
  void Pause(std::chrono::milliseconds time) override;
  void ShowDrawn() override { stage_->ShowChanges(); }
  void Watch(EventSource* source) override;
  void ProcessWaiting() override;
  void Post(std::function<void()> act) override { posted_.Post(std::move(act)); }
  std::chrono::milliseconds DispatchTime() override;
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override;

 private:
  void OnPrinted(std::string_view text) override;
  void ServeModal(Form& form) override;

  // A dialog's answer from the script: nothing for an empty line and at the end of input.
  template <typename Ask>
  std::optional<std::string> AskDialog(std::string_view mode, std::string_view title, Ask ask);
  BoxAnswer AnswerYesNo(const Box& box);
  Dialogs* Asked() const;
  template <typename Ask>
  std::optional<std::string> Answer(Ask ask);
  void TellError(std::string_view utf8);
  void TellPlace(std::string_view text);
  void TellMissingPart(std::string_view problem);
  void CatchUp();
  void Dispatch();
  bool DeliverNext();
  void FinishLine();
  bool RecordNext();
  bool RecordActOrTime(std::chrono::milliseconds time);
  bool PlayRecorded(PersonAct act);
  EventSource::Delivered DeliverOutside();
  void LetOutsideAct(std::chrono::milliseconds time, bool oneEvent);
  std::vector<int> Wakes() const;
  void Rest(std::chrono::milliseconds time);
  Form& InHand() const;
  Form& BringInHand();

  PersonObject* FindObject(std::string_view name) override;
  bool TurnTo(PersonObject& object) override;
  void Click() override;
  void DoubleClick() override;
  void PressButton(MouseButton button) override;
  void ReleaseButton(MouseButton button) override;
  void MovePointer(double line, double column) override;
  void TypeText(std::string_view text) override;
  void PressKey(int keyCode, KeyShift shift) override;
  void ReleaseKey(int keyCode, KeyShift shift) override;
  void ResizeWindow(double lines, double columns) override;
  bool TurnToWindow(std::string_view name) override;
  bool CloseWindow(std::string_view name) override;
  void LetTimePass(std::chrono::milliseconds time, int times) override;
  std::string TakePortrait(std::string_view path) override;
  void LetNetworkAct(std::chrono::milliseconds time) override;

  std::ostream& out_;
  std::ostream& err_;
  ScriptInput input_;
  ConsoleOptions options_;
  PartTexts texts_;
  ScriptTime time_;
  PostedActs posted_;
  EventSource* source_ = nullptr;
  SystemClock clock_;
  SeededRandom random_;
  SystemFiles files_;
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point caughtUp_ = start_;
  std::unique_ptr<Stage> memory_;  // where no other stage is given
  Stage* stage_;
  Form* mainForm_ = nullptr;
  std::set<MouseButton> pressedButtons_;
  std::weak_ptr<Control> pressed_;  // the object that they hold; none where it is the window
  // A time that is to pass again, in the place of a line.
  struct TimeAgain {
    std::chrono::milliseconds time{0};
    int times = 0;
  };
  TimeAgain again_;
  const WindowDirectory* windows_ = nullptr;
};

}  // namespace tessera
