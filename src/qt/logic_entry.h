// The one way from an event of the window system into the logic. No exception may cross an event loop, so
// what the logic throws is kept here and thrown again behind the dispatch that let the event in.
#pragma once

#include <exception>
#include <functional>
#include <utility>
#include <vector>

#include "windows/script_author.h"

namespace tessera {

class LogicEntry {
 public:
  // `leaveLoops` ends all event loops that are running, modal ones too.
  explicit LogicEntry(std::function<void()> leaveLoops) : leaveLoops_(std::move(leaveLoops)) {}

  // Runs `act`, or keeps it for later while entries are held. Behind a throw nothing enters any more.
  void Enter(std::function<void()> act) noexcept;

  // From now on nothing enters: an event script leads, and no person.
  void Close() { isClosed_ = true; }

  // Behind `Close`: the person writes the script. What is done comes to `author` as lines, and the program
  // feels it when they are played.
  void TellActs(std::function<void(PersonAct)> author) { author_ = std::move(author); }
  bool TellsActs() const { return author_ != nullptr; }
  void TellAct(PersonAct act) { author_(std::move(act)); }

  // Runs what changes nothing but the sight of a thing, which no script need tell. Else as `Enter`.
  void Glance(std::function<void()> act) noexcept;

  // True while entries are kept for later.
  bool IsHeld() const { return holds_ > 0; }

  // True while something runs that came in here.
  bool IsInside() const { return depth_ > 0; }

  // True until the throw of an entry is thrown again.
  bool HasThrown() const { return thrown_ != nullptr; }

  // Throws again what an entry has thrown. Called behind every event loop.
  void Rethrow();

  // While it lives events may be dispatched, to paint, but none reaches the logic; they follow when it ends.
  class Hold {
   public:
    explicit Hold(LogicEntry& entry) : entry_(entry) { ++entry_.holds_; }
    ~Hold() { entry_.Release(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    LogicEntry& entry_;
  };

 private:
  void Release() noexcept;
  void Run(const std::function<void()>& act) noexcept;

  std::function<void()> leaveLoops_;
  std::function<void(PersonAct)> author_;
  std::exception_ptr thrown_;
  bool isClosed_ = false;
  int holds_ = 0;
  int depth_ = 0;
  std::vector<std::function<void()>> held_;
};

}  // namespace tessera
