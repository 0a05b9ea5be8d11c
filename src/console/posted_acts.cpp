#include "console/posted_acts.h"

#include <sys/eventfd.h>

#include <utility>

namespace tessera {

PostedActs::PostedActs() : wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void PostedActs::Post(std::function<void()> act) {
  const std::lock_guard lock(mutex_);
  acts_.push_back(std::move(act));
  eventfd_write(wake_.number(), 1);
}

void PostedActs::Run() {
  std::unique_lock lock(mutex_);
  eventfd_t woken = 0;
  eventfd_read(wake_.number(), &woken);
  for (std::size_t count = acts_.size(); count > 0 && !acts_.empty(); --count) {
    const auto act = std::move(acts_.front());
    acts_.pop_front();
    lock.unlock();
    act();
    lock.lock();
  }
}

}  // namespace tessera
