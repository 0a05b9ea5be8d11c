#include "runtime/attentive_host.h"

#include <utility>

#include "platform/termination.h"

namespace tessera {

void AttentiveHost::BeforeWait() {
  run_->fileNumbers.FlushAll();
}

// The window system tells its wishes by an event as well; then the window is closed already.
void AttentiveHost::AfterWait() {
  if (termination::IsAsked() && run_->RunningFlag) run_->doors.UnloadMainWindow();
}

BoxAnswer AttentiveHost::ShowBox(const Box& box) {
  return AroundWait([&] { return host_.dialogs.ShowBox(box); });
}

TextInputAnswer AttentiveHost::AskText(const TextInput& input) {
  return AroundWait([&] { return host_.dialogs.AskText(input); });
}

std::optional<std::string> AttentiveHost::AskFile(const FileRequest& request) {
  return AroundWait([&] { return host_.dialogs.AskFile(request); });
}

std::optional<std::int32_t> AttentiveHost::AskColour(std::string_view title) {
  return AroundWait([&] { return host_.dialogs.AskColour(title); });
}

std::optional<ChosenFont> AttentiveHost::AskFont(std::string_view title) {
  return AroundWait([&] { return host_.dialogs.AskFont(title); });
}

std::optional<std::string> AttentiveHost::AskPrinter(std::string_view title) {
  return AroundWait([&] { return host_.dialogs.AskPrinter(title); });
}

void AttentiveHost::ProcessEvents() {
  BeforeWait();
  host_.events.ProcessEvents();
  AfterWait();
}

void AttentiveHost::ProcessWaiting() {
  BeforeWait();
  host_.events.ProcessWaiting();
  AfterWait();
}

bool AttentiveHost::AwaitEvents(std::chrono::milliseconds sleep) {
  return AroundWait([&] { return host_.events.AwaitEvents(sleep); });
}

bool AttentiveHost::AwaitNextEvents() {
  return AroundWait([&] { return host_.events.AwaitNextEvents(); });
}

void AttentiveHost::Pause(std::chrono::milliseconds time) {
  BeforeWait();
  host_.events.Pause(time);
}

void AttentiveHost::ShowDrawn() {
  constexpr std::chrono::milliseconds kLongest{500};
  host_.events.ShowDrawn();
  const auto now = std::chrono::steady_clock::now();
  if (now - flushed_ > kLongest) {
    flushed_ = now;
    run_->fileNumbers.FlushAll();
  }
  AfterWait();
}

// A tick may run while the program waits, and the wait goes on behind it.
std::unique_ptr<Timer> AttentiveHost::StartTimer(std::chrono::milliseconds interval,
                                                 std::function<void()> tick) {
  return host_.events.StartTimer(interval, [this, tick = std::move(tick)] {
    tick();
    run_->fileNumbers.FlushAll();
  });
}

}  // namespace tessera
