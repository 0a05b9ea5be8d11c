// The timers of the console host and the time that they keep: the script's own, moved by its `espera` lines
// alone, or that of the machine where a person sits at the terminal.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <optional>

#include "platform/host.h"

namespace tessera {

class ScriptTime {
 public:
  using Milliseconds = std::chrono::milliseconds;

  // The timer ends with the object given back; this object outlives it.
  std::unique_ptr<Timer> StartTimer(Milliseconds interval, std::function<void()> tick);

  // Lets the ticks of that time fall due one after the other. A tick may let more time pass, or end timers.
  void Pass(Milliseconds time);

  // The same for time that went by unattended: several missed ticks of a timer are one.
  void CatchUp(Milliseconds time);

  // Ticks, once each, the timers that have no interval.
  void TickWaiting();

  // The time that has passed since the start.
  Milliseconds Now() const { return now_; }

  // How long until the next tick is due, of timers that are no faster; nothing without such timers.
  std::optional<Milliseconds> UntilNextTick(Milliseconds fastest = Milliseconds{1}) const;

 private:
  struct Row {
    Milliseconds interval;
    Milliseconds due;
    std::function<void()> tick;
  };
  class Handle;
  using Rows = std::list<std::shared_ptr<Row>>;

  Rows::const_iterator NextDue(Milliseconds fastest = Milliseconds{1}) const;
  static void Tick(std::shared_ptr<Row> row, Milliseconds time);

  Milliseconds now_{0};
  Rows rows_;
};

}  // namespace tessera
