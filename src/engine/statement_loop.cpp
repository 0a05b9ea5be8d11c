#include "engine/statement_loop.h"

#include <cmath>

#include "engine/assignment_form.h"
#include "engine/statement.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

// Statements from one breath to the next: far less than a screen's picture takes, and too many to cost
// anything.
constexpr std::uint32_t kBreath = 512;

// Counts in a register, and leaves the count behind it.
class Counter {
 public:
  explicit Counter(std::uint32_t& counted) : counted_(counted), now_(counted) {}
  ~Counter() { counted_ = now_; }
  Counter(const Counter&) = delete;
  Counter& operator=(const Counter&) = delete;

  bool IsBelow(std::uint32_t limit) const { return now_ < limit; }
  void operator++() { ++now_; }

 private:
  std::uint32_t& counted_;
  std::uint32_t now_;
};

}  // namespace

void StatementLoop::RunFrom(std::int32_t startStatement) {
  run_.stack.Check();
  const Engine::Level level(engine_);
  run_.StopFlag = false;
  const Line* line = startStatement == 0 ? text_.First() : text_.FindStatement(startStatement, 1);
  const bool plain = run_.plain || text_.isOnce();
  while (line != nullptr) {
    if (!run_.RunningFlag || run_.WindowCodeStopFlag || run_.StopFlag) return;
    if (!plain) line = RunWholeNumbers(*line);
    if (line == nullptr) return;
    run_.sourcePosition = line->source;
    if (++sinceBreath_ >= kBreath) {
      sinceBreath_ = 0;
      run_.host.events.ShowDrawn();
    }
    line = plain ? PlainStep(*line) : Step(*line);
  }
}

// FAST: what the inner loops of a program consist of. Such lines show nothing, stop nothing and make no
// names, so that nobody need be asked between them. Gives the first line of another kind.
const Line* StatementLoop::RunWholeNumbers(const Line& start) {
  VariableStore& store = run_.variables;
  if (!store.SymbolsTellAll()) return &start;
  const Line* line = &start;
  Counter statements(sinceBreath_);
  for (const Line* next = nullptr; statements.IsBelow(kBreath); ++statements, line = next) {
    const LineForm& form = line->form;
    switch (form.kind) {
      case LineForm::Kind::Step: {
        std::int32_t* integer = form.target.Integer(store);
        if (integer == nullptr || !PutWhole(*integer, std::int64_t{*integer} + form.change)) return line;
        next = form.next;
        break;
      }
      case LineForm::Kind::While: {
        bool holds = false;
        if (!form.condition->CompareWhole(store, holds)) return line;
        next = holds ? form.next : form.jump;
        break;
      }
      case LineForm::Kind::If: {
        bool holds = false;
        if (!form.condition->CompareWhole(store, holds)) return line;
        next = Branch(form, holds);
        break;
      }
      case LineForm::Kind::Else:
        next = PassElse(form);
        break;
      case LineForm::Kind::EndIf:
        if (form.target.type() != VariableType::None) return line;
        seResult_[form.depth] = Outcome::None;
        next = form.next;
        break;
      case LineForm::Kind::Repeat:
        next = form.next;
        break;
      case LineForm::Kind::Return:
        if (!form.term->EvaluateWhole(store, engine_.ReturnValue)) return line;
        next = form.next;
        break;
      case LineForm::Kind::End:
        next = nullptr;
        break;
      case LineForm::Kind::VariableOrCommand:
        if (form.assignment != nullptr ? !form.assignment->AssignWhole(engine_, store, form.target)
                                       : !IsIdle(form)) {
          return line;
        }
        next = form.next;
        break;
      case LineForm::Kind::Compound: {
        std::int32_t* integer = form.target.Integer(store);
        std::int64_t whole = 0;
        if (integer == nullptr || !form.term->ReadWhole(store, whole) ||
            !PutWhole(*integer, *integer + form.change * whole)) {
          return line;
        }
        next = form.next;
        break;
      }
      default:
        return line;
    }
    if (next == nullptr) {
      run_.sourcePosition = line->source;
      return nullptr;
    }
  }
  return line;
}

// The fast road: a line by its form, and by the rules where it has none.
const Line* StatementLoop::Step(const Line& line) {
  const LineForm& form = line.form;
  switch (form.kind) {
    case LineForm::Kind::While:
      return form.condition->Holds(run_) ? form.next : form.jump;
    case LineForm::Kind::If:
      return Branch(form, form.condition->Holds(run_));
    case LineForm::Kind::Step:
      if (StepDecimal(form)) return form.next;
      break;
    case LineForm::Kind::Compound:
      if (CompoundInPlace(form)) return form.next;
      break;
    case LineForm::Kind::VariableOrCommand:
      return RunVariableOrCommand(line);
    case LineForm::Kind::Return:
      engine_.ReturnValue = form.term->Evaluate(run_);
      return form.next;
    case LineForm::Kind::Sub:
      CallSub(line);
      return form.next;
    default:
      break;
  }
  return ByRules(line);
}

// True for a word that names nothing, as those that close a routine.
bool StatementLoop::IsIdle(const LineForm& form) {
  const Symbol& symbol = *form.target.symbol;
  return form.arguments != nullptr && form.arguments->command == nullptr &&
         symbol.type == VariableType::None && !symbol.isLocal;
}

const Line* StatementLoop::Branch(const LineForm& form, bool holds) {
  seResult_[form.depth] = holds ? Outcome::True : form.jumpEndsBlock ? Outcome::None : Outcome::False;
  return holds ? form.next : form.jump;
}

const Line* StatementLoop::PassElse(const LineForm& form) {
  Outcome& outcome = seResult_[form.depth];
  if (outcome == Outcome::False) return form.next;
  outcome = Outcome::None;
  return form.jump;
}

// A line that has come round for the second time gets its form, and goes by it the next time.
const Line* StatementLoop::ByRules(const Line& line) {
  switch (line.form.kind) {
    case LineForm::Kind::New:
      line.form.kind = LineForm::Kind::Seen;
      break;
    case LineForm::Kind::Seen:
      ReadForm(run_, text_, line);
      break;
    default:
      break;
  }
  return PlainStep(line);
}

bool StatementLoop::StepDecimal(const LineForm& form) {
  double* decimal = form.target.Decimal(run_.variables);
  if (!run_.variables.SymbolsTellAll() || decimal == nullptr) return false;
  *decimal += form.change;
  return true;
}

bool StatementLoop::CompoundInPlace(const LineForm& form) {
  VariableStore& store = run_.variables;
  if (!store.SymbolsTellAll() || !form.term->IsWithoutCalls() || form.target.Integer(store) != nullptr)
    return false;
  const Reading reading = form.term->Read(run_);
  if (double* decimal = form.target.Decimal(store)) {
    if (reading.kind != Reading::Kind::Whole && reading.kind != Reading::Kind::Float) return false;
    const double sum = *decimal + form.change * reading.number;
    if (!std::isfinite(sum)) return false;
    *decimal = sum;
    return true;
  }
  std::string* text = form.target.Text(store);
  if (text == nullptr || reading.kind != Reading::Kind::Text || form.change < 0) return false;
  if (text->size() + reading.text.size() > VariableStore::kMaxTextLength) return false;
  text->append(reading.text);
  return true;
}

const Line* StatementLoop::RunVariableOrCommand(const Line& line) {
  LineForm& form = line.form;
  const Opening& opening = line.opening;
  if (!run_.variables.SymbolsTellAll()) return PlainStep(line);
  if (form.target.type() != VariableType::None) {
    if (!form.assignment) form.assignment = std::make_unique<const AssignmentForm>(run_, line);
    form.assignment->Assign(engine_, run_, form.target, opening.word);
  } else if (opening.mayDispatch &&
             (!form.target.symbol->isLocal || run_.variables.VarFind(opening.word) == -1)) {
    if (!form.arguments && run_.variables.FindNumbers(line.text)) {
      form.arguments = std::make_unique<ArgumentForms>(opening.rest);
    }
    run_.doors.CommandCall(opening.word, {opening.rest, form.arguments.get()});
  } else {
    return PlainStep(line);
  }
  return form.next;
}

void StatementLoop::CallSub(const Line& line) {
  LineForm& form = line.form;
  if (form.sub != nullptr) {
    engine_.RunSub(*form.sub);
  } else {
    form.sub = engine_.CallSub(line.opening.word);
  }
}

const Line* StatementLoop::PlainStep(const Line& line) {
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
  const auto change = [&](const Value& value, const Value& operand) {
    return line.road == Road::Add ? AddValues(value, operand) : SubtractValues(value, operand);
  };
  VariableStore& store = run_.variables;
  if (const LineForm& form = line.form; form.kind == LineForm::Kind::Compound) {
    const Value value = ReadBy(store, form.target, line.variable);
    WriteBy(store, form.target, line.variable, change(value, form.term->Evaluate(run_)));
  } else {
    const Value value = store.VarRead(line.variable);
    store.VarWrite(line.variable, change(value, EvalNumber(run_, line.expression)), true);
  }
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

StatementLoop::Outcome& StatementLoop::SeResult(std::string_view depth) {
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
    Outcome& result = SeResult(blocks.se->depth);
    result = holds ? Outcome::True : Outcome::False;
    // Testing a click consumes it.
    if (blocks.testsClick) run_.variables.VarWrite("CliqueMouse", "NAO"_w, true);
    if (holds) return text_.Next(line);
    if (const Jump alternative = text_.Alternative(line); alternative.found) return alternative.next;
    if (const Jump end = text_.BlockEnd(line, *blocks.se); end.found) {
      result = Outcome::None;
      return end.next;
    }
  }
  if (blocks.fimSe) SeResult(blocks.fimSe->depth) = Outcome::None;
  if (blocks.casoContrario) {
    Outcome& result = SeResult(blocks.casoContrario->depth);
    if (result == Outcome::False) return text_.Next(line);
    if (const Jump end = text_.BlockEnd(line, *blocks.casoContrario); end.found) {
      result = Outcome::None;
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
