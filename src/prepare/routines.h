// The tables of a program's routines. They tell which names exist; a body is found in the text at each call.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

struct RoutineTables {
  std::vector<std::string> FunctionNames;
  std::vector<std::string> FunctionTypes;    // the word behind the closing parenthesis
  std::vector<std::string> SubNames;         // with their parentheses
  std::vector<std::string> TimerNames;       // from "Temporizador_" to the first ")"
  std::vector<std::int16_t> TimerIntervals;  // in ticks of 10 ms; 0 never fires
  bool HasTimersFlag = false;
};

// Lists the functions, subs and timers of a linked program text. An unclosed routine, or a failure such as a
// function without parentheses, is told by `showCritical`; the tables stay as far as they were filled.
RoutineTables BuildRoutineTables(std::string_view text,
                                 const std::function<void(std::string_view)>& showCritical);

}  // namespace tessera
