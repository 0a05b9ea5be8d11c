#include "platform/stack_limit.h"

#include <pthread.h>
#include <sys/auxv.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>

#include "platform/failure.h"

namespace tessera {

namespace {

// The lowest byte of the main thread's stack, within a page or two; 0 where that can't be told. At its top
// the system has put the name of the program's file. The library would read the map of all memory for it, at
// each start.
std::uintptr_t LowestOfMainThread() {
  const std::uintptr_t top = getauxval(AT_EXECFN);
  rlimit limit{};
  if (gettid() != getpid() || getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur >= top) return 0;
  return top - limit.rlim_cur;
}

std::uintptr_t LowestOfThread() {
  pthread_attr_t attributes;
  void* address = nullptr;
  std::size_t size = 0;
  pthread_getattr_np(pthread_self(), &attributes);
  pthread_attr_getstack(&attributes, &address, &size);
  pthread_attr_destroy(&attributes);
  return reinterpret_cast<std::uintptr_t>(address);
}

}  // namespace

StackLimit::StackLimit(std::size_t reserve) : lowest_(LowestOfMainThread()) {
  if (lowest_ == 0) lowest_ = LowestOfThread();
  lowest_ += reserve;
}

void StackLimit::Check() const {
  if (reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < lowest_) FailStack();
}

void StackLimit::Raise(std::size_t bytes) {
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0) return;
  if (limit.rlim_cur != RLIM_INFINITY && limit.rlim_cur >= bytes) return;
  limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? bytes : std::min<rlim_t>(limit.rlim_max, bytes);
  setrlimit(RLIMIT_STACK, &limit);
}

}  // namespace tessera
