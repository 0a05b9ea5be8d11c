// A script that is written while a person plays it. Each line is in the file before it is done, so that
// whatever ends the process leaves a script of all that went before; lines that are one act to a reader
// become one, as long as the program has seen nothing in between.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/descriptor.h"
#include "windows/script_author.h"

namespace tessera {

class Recording {
 public:
  using Milliseconds = std::chrono::milliseconds;

  // The author outlives it. `file` is open for writing, and empty.
  Recording(ScriptAuthor& author, Descriptor file) : author_(author), file_(std::move(file)) {}

  ScriptAuthor& Author() { return author_; }

  // What the person does within a wait without an end, or the time until the next tick as a line; nothing
  // where one of the descriptors can be read, or the system ends the process.
  std::optional<PersonAct> NextAct(std::optional<Milliseconds> untilTick, std::span<const int> wakes);
  // What the person did, or a line of that time, which has gone by.
  PersonAct ActOrTime(Milliseconds time);

  // The act comes again next.
  void PutBack(PersonAct act) { held_ = std::move(act); }

  // Keeps an event line. `yields` tells lines of one wait from those of the next.
  void Keep(std::string line, std::uint64_t yields);
  // Keeps an answer, as it stands. The time until it was given is nobody's.
  void KeepAnswer(const std::string& answer);
  // Takes back the line kept last, which nothing could be done with.
  void TakeBack();

  // Whether everything is in the file.
  bool IsWhole() const { return isWhole_; }

 private:
  using Clock = std::chrono::steady_clock;

  // How much more time has gone by than the script has told.
  Milliseconds Behind() const;
  PersonAct TimeLine(Milliseconds time);
  // Leaves at most so many lines open.
  void Settle(std::size_t most);
  void Write(std::vector<std::string> lines);

  ScriptAuthor& author_;
  Descriptor file_;
  // The lines that may still change, and where they begin in the file.
  std::vector<std::string> open_;
  std::size_t settled_ = 0;
  std::vector<std::string> before_;  // the open lines before the last one was kept
  std::uint64_t yields_ = 0;         // when that was
  bool isPressed_ = false;           // a button of the pointer
  std::optional<PersonAct> held_;
  Clock::time_point scriptTime_ = Clock::now();  // how far the script's time has come
  bool isWhole_ = true;
};

// The open lines with one more, where lines that are one act become one: `withinWait` tells that the program
// has seen nothing since the last of them.
std::vector<std::string> WithLine(std::vector<std::string> lines, std::string line, bool withinWait);

}  // namespace tessera
