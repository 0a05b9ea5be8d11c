#include "platform/stack_limit.h"

#include <pthread.h>
#include <sys/resource.h>

#include <algorithm>

#include "platform/failure.h"

namespace tessera {

StackLimit::StackLimit(std::size_t reserve) {
  pthread_attr_t attributes;
  void* address = nullptr;
  std::size_t size = 0;
  pthread_getattr_np(pthread_self(), &attributes);
  pthread_attr_getstack(&attributes, &address, &size);
  pthread_attr_destroy(&attributes);
  lowest_ = reinterpret_cast<std::uintptr_t>(address) + reserve;
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
