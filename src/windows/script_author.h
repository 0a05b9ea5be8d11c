// Who writes an event script while it is played: a person at the windows of its stage. What the person does
// comes as lines, one for each act, and reaches the program when the script is played on, so that the script
// played again does the same.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "platform/host.h"

namespace tessera {

class Form;

// An act, as the line of a script that tells it.
struct PersonAct {
  std::string line;
  const Form* window = nullptr;  // on which it was done; only compared, for it may be gone
};

class ScriptAuthor {
 public:
  using Milliseconds = std::chrono::milliseconds;

  virtual ~ScriptAuthor() = default;

  // The boxes and dialogs that the person answers.
  virtual Dialogs& Answers() = 0;
  // The next act, or nothing: the time is over, one of the descriptors can be read, or the system ends the
  // process. No time is for ever.
  virtual std::optional<PersonAct> NextAct(std::optional<Milliseconds> within,
                                           std::span<const int> wakes) = 0;
  // Lets the windows live for that time; acts wait.
  virtual void Rest(Milliseconds time) = 0;
};

}  // namespace tessera
