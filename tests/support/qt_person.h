// An event script played on the host with windows: its lines become real pointer, key and window events. The
// lines are taken as the console host takes them, one for each `Aguarde`, and further ones while a modal
// window is open or when the program's text has ended.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include "console/event_script.h"
#include "platform/host.h"
#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "windows/form.h"
#include "windows/window_directory.h"

class QWidget;

namespace tessera::test {

class QtPerson final : public Person {
 public:
  // Found once the program has its windows.
  const WindowDirectory* windows = nullptr;

  // True while the host delivers events by itself, for a modal window or behind the program's end.
  bool HostServes() const;

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
  void LetNetworkAct(std::chrono::milliseconds time) override { LetTimePass(time, 1); }

 private:
  QWidget& InHand() const;
  QPoint PointerIn(const QWidget& widget) const;

  std::unique_ptr<PersonObject> object_;  // the last one that was found
  double pointerLine_ = 0;
  double pointerColumn_ = 0;
};

// The dispatch of the host with windows, which plays the script on its way.
class ScriptedDispatch final : public EventDispatch {
 public:
  ScriptedDispatch(EventDispatch& host, const std::string& script);

  QtPerson person;

  void ProcessEvents() override;
  bool AwaitEvents(std::chrono::milliseconds sleep) override;
  bool AwaitNextEvents() override;
  void Pause(std::chrono::milliseconds time) override { host_.Pause(time); }
  void Post(std::function<void()> act) override { host_.Post(std::move(act)); }
  std::chrono::milliseconds DispatchTime() override { return host_.DispatchTime(); }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override {
    return host_.StartTimer(interval, std::move(tick));
  }

 private:
  bool PlayLine();
  void PlayIdle();

  EventDispatch& host_;
  std::istringstream lines_;
  // Plays while the host serves events by itself.
  QTimer idle_;
  int dispatching_ = 0;
  bool wasServing_ = false;
};

// A program on real windows, and a person there who follows a script.
struct PlayedOnWindows {
  explicit PlayedOnWindows(
      const std::string& script, const std::function<void(Services&)>& change = [](Services&) {})
      : dispatch(qt, script), program({boxes, dispatch, host.clock, host.random, host.files}, qt, change) {
    dispatch.person.windows = &program.janela.windows();
  }

  QtHost qt;
  const Host host = qt.host();
  RecordedBoxes boxes;
  ScriptedDispatch dispatch;
  HostedProgram program;
};

}  // namespace tessera::test
