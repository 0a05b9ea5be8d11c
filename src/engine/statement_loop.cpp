#include "engine/statement_loop.h"

#include "engine/statement.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

// Statements from one breath to the next: far less than a screen's picture takes, and too many to cost
// anything.
constexpr std::uint32_t kBreath = 512;

}  // namespace

void StatementLoop::RunFrom(std::int32_t startStatement) {
  run_.stack.Check();
  run_.StopFlag = false;
  const Position firstTag = text_.text().FirstTag();
  if (startStatement == 0 && firstTag == 0) return;
  const Line* line =
      text_.FindStatement(startStatement == 0 ? text_.text().NumberAt(firstTag) : startStatement, 1);
  for (std::uint32_t count = 1; line != nullptr; ++count) {
    if (!run_.RunningFlag || run_.WindowCodeStopFlag || run_.StopFlag) return;
    run_.sourcePosition = line->source;
    if (count % kBreath == 0) run_.host.events.ShowDrawn();
    line = Step(*line);
  }
}

const Line* StatementLoop::Step(const Line& line) {
  switch (line.road) {
    case Road::EndProgram:
      run_.StopFlag = true;
      return nullptr;
    case Road::EndFunction:
      return nullptr;
    case Road::EndWindow:
      return EndWindow();
    case Road::Increment:
      return StepVariable(line, 1);
    case Road::Decrement:
      return StepVariable(line, -1);
    case Road::Add:
    case Road::Subtract:
      return Compound(line);
    case Road::NewWindow:
      return OpenWindow(line);
    case Road::Database:
      return DatabaseBlock(line);
    case Road::GoTo:
      return GoTo(line);
    case Road::Blocks:
      break;
  }
  return line.blocks ? BracketWords(line) : Execute(line);
}

const Line* StatementLoop::EndWindow() {
  run_.doors.UnloadMainWindow();
  return nullptr;
}

const Line* StatementLoop::StepVariable(const Line& line, int change) {
  const Value value = run_.variables.VarRead(line.variable);
  run_.variables.VarWrite(line.variable, AddValues(value, std::int32_t{change}), true);
  return text_.Next(line);
}

const Line* StatementLoop::Compound(const Line& line) {
  const Value value = run_.variables.VarRead(line.variable);
  const Value operand = EvalNumber(run_, line.expression);
  const Value result = line.road == Road::Add ? AddValues(value, operand) : SubtractValues(value, operand);
  run_.variables.VarWrite(line.variable, result, true);
  return text_.Next(line);
}

const Line* StatementLoop::OpenWindow(const Line& line) {
  constexpr std::size_t kArgumentsColumn = 31;  // behind "NovaJanela "
  run_.doors.NovaJanela(Mid(line.text, kArgumentsColumn));
  return text_.Next(line);
}

const Line* StatementLoop::DatabaseBlock(const Line& line) {
  const std::int32_t last =
      run_.doors.RunDatabaseBlock(text_.text().text(), line.position, line.end, line.number);
  return text_.FindStatement(last + 1, line.position);
}

const Line* StatementLoop::GoTo(const Line& line) {
  const auto refuse = [&](std::string_view reason) -> const Line* {
    ShowCritical(run_, std::string("Erro no comando VaPara (Ed.: "_w)
                           .append(std::to_string(line.source.editor))
                           .append(" Linha ")
                           .append(std::to_string(line.source.line))
                           .append("): ")
                           .append(reason));
    return nullptr;
  };
  if (line.label.ends_with(':')) return refuse("rótulo não pode ter caractere : (dois pontos)!"_w);
  const Jump target = text_.Target(line);
  if (!target.found) {
    return refuse(std::string("rótulo não encontrado: "_w).append(line.label).append(":"));
  }
  return target.next;
}

bool StatementLoop::Holds(const Bracket& bracket) {
  if (!bracket.condition) bracket.condition = SplitCondition(bracket.conditionText);
  return EvaluateCondition(run_, *bracket.condition) == kTrue;
}

std::string_view& StatementLoop::SeResult(std::string_view depth) {
  const std::int32_t index = Value(depth).ToInteger();
  if (index < 0 || index >= static_cast<std::int32_t>(kDepths)) FailSubscript();
  return seResult_[static_cast<std::size_t>(index)];
}

// The bracket words, each asked for in its turn: a word whose search finds nothing lets the line go on to the
// next test, and in the end to its plain execution.
const Line* StatementLoop::BracketWords(const Line& line) {
  const Blocks& blocks = *line.blocks;
  if (blocks.enquanto) {
    if (Holds(*blocks.enquanto)) return text_.Next(line);
    if (const Jump end = text_.LoopEnd(line); end.found) return end.next;
  }
  if (blocks.repita) {
    if (const Jump start = text_.LoopStart(line); start.found) return start.next;
  }
  if (blocks.se) {
    const bool holds = Holds(*blocks.se);
    std::string_view& result = SeResult(blocks.se->depth);
    result = holds ? kTrue : kFalse;
    // Testing a click consumes it.
    if (blocks.testsClick) run_.variables.VarWrite("CliqueMouse", "NAO"_w, true);
    if (holds) return text_.Next(line);
    if (const Jump alternative = text_.Alternative(line); alternative.found) return alternative.next;
    if (const Jump end = text_.BlockEnd(line, *blocks.se); end.found) {
      result = {};
      return end.next;
    }
  }
  if (blocks.fimSe) SeResult(blocks.fimSe->depth) = {};
  if (blocks.casoContrario) {
    std::string_view& result = SeResult(blocks.casoContrario->depth);
    if (result == kFalse) return text_.Next(line);
    if (const Jump end = text_.BlockEnd(line, *blocks.casoContrario); end.found) {
      result = {};
      return end.next;
    }
  }
  return Execute(line);
}

const Line* StatementLoop::Execute(const Line& line) {
  ExecuteStatement(engine_, run_, line);
  return text_.Next(line);
}

}  // namespace tessera
