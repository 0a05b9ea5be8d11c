// The execution engine of one run: walks prepared texts, decides what a line is, calls the program's
// routines. It knows no window and no command; both are reached by the doors of `Run`.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/failure.h"
#include "prepare/prepared_text.h"
#include "values/argument_text.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

class RunnableText;

class Engine {
 public:
  // Fills the door `CallFunction` of the run. The run outlives the engine.
  explicit Engine(Run& run);
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // Walks `text` from its first statement (0) or from the statement of that number, until the text has no
  // next statement, an end word is met, or a stop flag is up. Failures leave through it to the nearest guard.
  void RunStatements(const std::shared_ptr<const PreparedText>& text, std::int32_t startStatement);

  // Runs a sub, named with its parentheses. A failure in it ends it without a word.
  // Its text, ready for `RunSub`; none when there is no such sub, or none that could be run.
  const RunnableText* CallSub(std::string_view name);
  void RunSub(const RunnableText& body);

  // Runs a function of the program with its raw argument text. A failure shows a box, where Cancel stops the
  // program, and the value is empty.
  Value CallFunction(std::string_view name, const ArgumentText& arguments);

  // One tick of the 10 ms timer that drives the `Temporizador_` subs: each row whose interval divides the
  // tick's number is called, in table order. A tick may come while another one's sub waits.
  void OnTickTimer();

  // What statements leave for later ones. Tells that the right side of the running assignment is text.
  bool TextExpressionFlag = false;
  // Written by `Retorne`, read when a function ends, never cleared.
  Value ReturnValue;
  std::int32_t FunctionCallCounter = 0;

  // A text that is being walked: the program's, and those of the routines that it waits for.
  class Level {
   public:
    // Failure 28 beyond `mostLevels`.
    explicit Level(Engine& engine);
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --engine_.levels_; }

   private:
    Engine& engine_;
  };

  int mostLevels = 10'000;

  // Hears of each failure that ends a routine and that the routine's guard keeps to itself; `what` says in
  // UTF-8 which kind of routine ended. Empty where nobody asks.
  std::function<void(std::string_view what, const RunFailure& failure)> onHiddenFailure;

  // Calls of the program's functions on the stack. Some expression waits for each, and with it a command that
  // may hold a window.
  int FunctionsInProgress() const { return functionsInProgress_; }

 private:
  // Runs a sub's body or what finds it. The guard of a sub is silence: a failure ends the sub, and the
  // calling statement counts as done.
  template <typename Body>
  void GuardSub(Body&& body);
  void TellHidden(std::string_view what, const RunFailure& failure) const {
    if (onHiddenFailure) onHiddenFailure(what, failure);
  }

  class Routines;
  class FunctionBodies;

  // The steps of a function's call, whose answer is `ReturnValue`; failures leave it.
  void RunFunction(std::string_view name, const ArgumentText& arguments);
  // The same by a body that is ready, if there is one for this call: else false, and nothing was done but,
  // with `cut` filled, what cutting the arguments does.
  bool RunReadyFunction(ReadyFunction& function, const ArgumentText& arguments,
                        std::optional<std::vector<std::string>>& cut);

  Run& run_;
  int levels_ = 0;
  int functionsInProgress_ = 0;
  std::unique_ptr<Routines> routines_;
  std::unique_ptr<FunctionBodies> bodies_;
  // The call counter at the last failure of a function, whose names are still there.
  std::int32_t failedAt_ = -1;
  std::int32_t TimerTick_ = 0;
};

}  // namespace tessera
