// The one script on the input: answers and event lines, taken one at a time.
#pragma once

#include <chrono>
#include <istream>
#include <optional>
#include <string>

namespace tessera {

class ScriptInput {
 public:
  // `descriptor` is the input's, where it has one. A person types at a terminal.
  ScriptInput(std::istream& in, std::optional<int> descriptor, bool isTerminal)
      : in_(in), descriptor_(descriptor), isTerminal_(isTerminal) {}

  bool IsTerminal() const { return isTerminal_; }

  // The next line as it stands, in the program's code page; nothing at the end of input, or where the system
  // ends the process. Waits on a terminal.
  std::optional<std::string> NextLine();

  // The next line that is an event: blank lines and remarks are passed over.
  std::optional<std::string> NextEventLine();

  // True when the terminal has a line or its end, or the system ends the process, within that time; no time
  // is for ever. `wake` is a descriptor that ends the waiting as soon as it can be read.
  bool LineWithin(std::optional<std::chrono::milliseconds> time, int wake) const;

  // Number of the line taken last, from 1.
  int lineNumber() const { return lineNumber_; }

 private:
  // Waits until there is something to read, or its end; false where the system ends the process before.
  bool AwaitInput() const;

  std::istream& in_;
  std::optional<int> descriptor_;
  bool isTerminal_;
  int lineNumber_ = 0;
};

}  // namespace tessera
