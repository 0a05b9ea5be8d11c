#include "console/script_time.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tessera {

class ScriptTime::Handle final : public Timer {
 public:
  Handle(ScriptTime& time, Rows::iterator row) : time_(time), row_(row) {}
  ~Handle() override { time_.rows_.erase(row_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

 private:
  ScriptTime& time_;
  Rows::iterator row_;
};

std::unique_ptr<Timer> ScriptTime::StartTimer(Milliseconds interval, std::function<void()> tick) {
  rows_.push_back(std::make_shared<Row>(Row{interval, now_ + interval, std::move(tick)}));
  return std::make_unique<Handle>(*this, std::prev(rows_.end()));
}

ScriptTime::Rows::const_iterator ScriptTime::NextDue(Milliseconds fastest) const {
  // Those without an interval are ticked by every dispatch, and by no time.
  const auto isTimed = [fastest](const auto& row) { return row->interval >= fastest; };
  auto next = std::find_if(rows_.begin(), rows_.end(), isTimed);
  for (auto row = next; row != rows_.end(); ++row) {
    if (isTimed(*row) && (*row)->due < (*next)->due) next = row;
  }
  return next;
}

void ScriptTime::Pass(Milliseconds time) {
  const Milliseconds end = now_ + time;
  for (auto next = NextDue(); next != rows_.end() && (*next)->due <= end; next = NextDue()) {
    now_ = std::max(now_, (*next)->due);
    Tick(*next, (*next)->due);
  }
  now_ = std::max(now_, end);
}

void ScriptTime::CatchUp(Milliseconds time) {
  now_ += time;
  for (auto next = NextDue(); next != rows_.end() && (*next)->due <= now_; next = NextDue()) {
    Tick(*next, now_);
  }
}

void ScriptTime::TickWaiting() {
  std::vector<std::shared_ptr<Row>> waiting;
  std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(waiting),
               [](const auto& row) { return row->interval == Milliseconds{0}; });
  for (const auto& row : waiting) {
    // A tick may have ended the timers behind it.
    if (std::find(rows_.begin(), rows_.end(), row) != rows_.end()) row->tick();
  }
}

// The row is held while its tick runs, for the tick may end the timer.
void ScriptTime::Tick(std::shared_ptr<Row> row, Milliseconds time) {
  row->due = time + row->interval;
  row->tick();
}

std::optional<ScriptTime::Milliseconds> ScriptTime::UntilNextTick(Milliseconds fastest) const {
  const auto next = NextDue(fastest);
  if (next == rows_.end()) return std::nullopt;
  return std::max(Milliseconds{0}, (*next)->due - now_);
}

}  // namespace tessera
