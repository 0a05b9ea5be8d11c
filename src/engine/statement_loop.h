// One instance of the statement loop: walks a text, keeps the outcomes of its open blocks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/engine.h"
#include "engine/line.h"

namespace tessera {

class StatementLoop {
 public:
  StatementLoop(Engine& engine, Run& run, const RunnableText& text)
      : engine_(engine), run_(run), text_(text) {}

  // Runs from the statement of that number, or from the first one for 0.
  void RunFrom(std::int32_t startStatement);

  // Blocks of a Se have depths below this.
  static constexpr std::size_t kDepths = 21;

 private:
  // What the last Se of a depth came to.
  enum class Outcome : std::uint8_t { None, True, False };

  const Line* RunWholeNumbers(const Line& start);
  const Line* Step(const Line& line);
  static bool IsIdle(const LineForm& form);
  const Line* Branch(const LineForm& form, bool holds);
  const Line* PassElse(const LineForm& form);
  const Line* ByRules(const Line& line);
  bool StepDecimal(const LineForm& form);
  bool CompoundInPlace(const LineForm& form);
  const Line* RunVariableOrCommand(const Line& line);
  void CallSub(const Line& line);

  // The rules. Each settles one line and tells the line to go on with; none leaves the loop.
  const Line* PlainStep(const Line& line);
  const Line* EndWindow();
  const Line* StepVariable(const Line& line, int change);
  const Line* Compound(const Line& line);
  const Line* OpenWindow(const Line& line);
  const Line* DatabaseBlock(const Line& line);
  const Line* GoTo(const Line& line);
  const Line* BracketWords(const Line& line);
  const Line* Execute(const Line& line);
  bool Holds(const Bracket& bracket);
  Outcome& SeResult(std::string_view depth);

  Engine& engine_;
  Run& run_;
  const RunnableText& text_;
  std::array<Outcome, kDepths> seResult_{};
  std::uint32_t sinceBreath_ = 0;  // statements
};

}  // namespace tessera
