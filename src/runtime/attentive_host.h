// A host as a running program sees it. Before the program waits in any way, the lines that it has written are
// in their files; while it computes they get there within a second. And where the system asks the process to
// end, the main window closes at the next wait or breath.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/host.h"
#include "values/run.h"

namespace tessera {

class AttentiveHost final : public Dialogs, public EventDispatch {
 public:
  // The host outlives it.
  explicit AttentiveHost(const Host& host) : host_(host) {}

  // What the run is made with.
  Host host() { return {*this, *this, host_.clock, host_.random, host_.files}; }
  // The run, once it is made.
  void Attend(Run& run) { run_ = &run; }

  BoxAnswer ShowBox(const Box& box) override;
  TextInputAnswer AskText(const TextInput& input) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  std::optional<std::int32_t> AskColour(std::string_view title) override;
  std::optional<ChosenFont> AskFont(std::string_view title) override;
  std::optional<std::string> AskPrinter(std::string_view title) override;

  void ProcessEvents() override;
  bool AwaitEvents(std::chrono::milliseconds sleep) override;
  bool AwaitNextEvents() override;
  void Pause(std::chrono::milliseconds time) override;
  void ShowDrawn() override;
  void Post(std::function<void()> act) override { host_.events.Post(std::move(act)); }
  void Watch(EventSource* source) override { host_.events.Watch(source); }
  void ProcessWaiting() override;
  std::chrono::milliseconds DispatchTime() override { return host_.events.DispatchTime(); }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override;

 private:
  void BeforeWait();
  void AfterWait();
  // Waits by `wait` for what it returns.
  template <typename Wait>
  auto AroundWait(Wait wait) {
    BeforeWait();
    auto answer = wait();
    AfterWait();
    return answer;
  }

  Host host_;
  Run* run_ = nullptr;
  std::chrono::steady_clock::time_point flushed_ = std::chrono::steady_clock::now();
};

}  // namespace tessera
