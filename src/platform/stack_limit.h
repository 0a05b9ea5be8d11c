// How much of the thread's real stack is left. Runaway nesting ends in a failure before the stack does.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessera {

class StackLimit {
 public:
  // Measures the stack of the calling thread. `reserve` bytes stay free for what a guard still has to do.
  explicit StackLimit(std::size_t reserve = kReserve);

  // Failure 28 when the stack is used up to the reserve.
  void Check() const;

  // Lets the main thread's stack grow to `bytes`, as far as the system permits. Called once, by a main.
  static void Raise(std::size_t bytes);

  static constexpr std::size_t kReserve = std::size_t{1} << 20;  // a message box and its event loop fit well
  static constexpr std::size_t kRunStack = std::size_t{64} << 20;  // of a process that runs programs

 private:
  std::uintptr_t lowest_;
};

}  // namespace tessera
