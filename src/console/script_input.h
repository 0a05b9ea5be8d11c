// The one script on the input: answers and event lines, taken one at a time.
#pragma once

#include <chrono>
#include <functional>
#include <istream>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "platform/host.h"

namespace tessera {

class ScriptInput {
 public:
  // `descriptor` is the input's, where it has one. A person types at a terminal.
  ScriptInput(std::istream& in, std::optional<int> descriptor, bool isTerminal)
      : in_(in), descriptor_(descriptor), isTerminal_(isTerminal) {}

  bool IsTerminal() const { return isTerminal_; }

  // What this source has to send goes on while a line is waited for.
  void SendMeanwhile(EventSource* source) { source_ = source; }

  // This is done again and again while a line is waited for.
  void DoMeanwhile(std::function<void()> act) { meanwhile_ = std::move(act); }

  // The next line as it stands, in the program's code page; nothing at the end of input, or where the system
  // ends the process. Waits on a terminal.
  std::optional<std::string> NextLine();

  // The next line that is an event: blank lines and remarks are passed over.
  std::optional<std::string> NextEventLine();

  // True when the terminal has a line or its end, or the system ends the process, within that time; no time
  // is for ever. `wakes` are descriptors that end the waiting as soon as one can be read.
  bool LineWithin(std::optional<std::chrono::milliseconds> time, std::span<const int> wakes) const;

  // Number of the line taken last, from 1.
  int lineNumber() const { return lineNumber_; }

 private:
  // Waits until there is something to read, or its end; false where the system ends the process before.
  bool AwaitInput() const;

  std::istream& in_;
  std::optional<int> descriptor_;
  bool isTerminal_;
  EventSource* source_ = nullptr;
  std::function<void()> meanwhile_;
  int lineNumber_ = 0;
};

}  // namespace tessera
