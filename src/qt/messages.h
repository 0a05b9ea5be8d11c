// What the window toolkit has to say, on stderr. Warnings that tell a person nothing are dropped.
#pragma once

#include <functional>
#include <string>

namespace tessera {

void InstallMessages();

// The toolkit's start, while one lives: what it says is kept back until its end. Where the start fails, which
// the toolkit ends the process for, `refused` is called, and must not return.
class GuardedStart {
 public:
  explicit GuardedStart(std::function<void()> refused);
  ~GuardedStart();
  GuardedStart(const GuardedStart&) = delete;
  GuardedStart& operator=(const GuardedStart&) = delete;

 private:
  friend void InstallMessages();

  static GuardedStart* current_;

  std::function<void()> refused_;
  std::string kept_;
};

}  // namespace tessera
