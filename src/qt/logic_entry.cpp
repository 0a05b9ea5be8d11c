#include "qt/logic_entry.h"

namespace tessera {

void LogicEntry::Enter(std::function<void()> act) noexcept {
  if (thrown_ || isClosed_) return;
  if (holds_ > 0) {
    held_.push_back(std::move(act));
    return;
  }
  Run(act);
}

void LogicEntry::Glance(std::function<void()> act) noexcept {
  if (!TellsActs()) return Enter(std::move(act));
  if (!thrown_) Run(act);
}

void LogicEntry::Run(const std::function<void()>& act) noexcept {
  ++depth_;
  try {
    act();
  } catch (...) {
    thrown_ = std::current_exception();
    leaveLoops_();
  }
  --depth_;
}

void LogicEntry::Rethrow() {
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
}

void LogicEntry::Release() noexcept {
  if (--holds_ > 0) return;
  for (auto& act : std::exchange(held_, {})) Enter(std::move(act));
}

}  // namespace tessera
