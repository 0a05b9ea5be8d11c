// What other threads have posted for the next dispatch, and how it wakes a host that rests.
#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include "platform/descriptor.h"

namespace tessera {

class PostedActs {
 public:
  PostedActs();

  // From any thread. The acts run in the order in which they came.
  void Post(std::function<void()> act);

  // Runs what is posted until now. An act that lets events through lets the next one in, on top of it.
  void Run();

  // Readable from a `Post` until the next `Run`.
  int WakeDescriptor() const { return wake_.number(); }

 private:
  std::mutex mutex_;
  std::deque<std::function<void()>> acts_;
  Descriptor wake_;
};

}  // namespace tessera
