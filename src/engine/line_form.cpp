#include "engine/line_form.h"

#include "engine/assignment_form.h"
#include "engine/line.h"
#include "engine/statement_loop.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera {

namespace {

using LineKind = LineForm::Kind;

// Where `line` leads when it is reached: a Repita that does nothing else leads to its Enquanto at once.
const Line* Through(const RunnableText& text, const Line* line) {
  if (line == nullptr || !line->blocks) return line;
  const Blocks& blocks = *line->blocks;
  if (!blocks.repita || blocks.enquanto) return line;
  const Jump start = text.LoopStart(*line);
  return start.found ? start.next : line;
}

// The depth of a block as the table of outcomes has it; false where asking for it fails.
bool ReadDepth(std::string_view written, std::uint8_t& depth) {
  const auto number = WholeNumber(written);
  if (!number) return false;
  const double rounded = RoundHalfEven(*number);
  if (!(rounded >= 0 && rounded < static_cast<double>(StatementLoop::kDepths))) return false;
  depth = static_cast<std::uint8_t>(rounded);
  return true;
}

LineKind ReadTarget(Run& run, std::string_view name, LineForm& form, LineKind kind) {
  const auto target = NameForm::Of(run.variables, name);
  if (!target) return LineKind::Plain;
  form.target = *target;
  return kind;
}

LineKind ReadWhile(Run& run, const RunnableText& text, const Line& line, LineForm& form) {
  const Jump end = text.LoopEnd(line);
  if (!end.found) return LineKind::Plain;
  form.jump = Through(text, end.next);
  form.condition = std::make_unique<const ConditionForm>(run, line.blocks->enquanto->conditionText);
  return LineKind::While;
}

LineKind ReadIf(Run& run, const RunnableText& text, const Line& line, LineForm& form) {
  const Bracket& bracket = *line.blocks->se;
  if (line.blocks->testsClick || !ReadDepth(bracket.depth, form.depth)) return LineKind::Plain;
  Jump jump = text.Alternative(line);
  if (!jump.found) {
    jump = text.BlockEnd(line, bracket);
    form.jumpEndsBlock = true;
  }
  if (!jump.found) return LineKind::Plain;
  form.jump = Through(text, jump.next);
  form.condition = std::make_unique<const ConditionForm>(run, bracket.conditionText);
  return LineKind::If;
}

LineKind ReadElse(const RunnableText& text, const Line& line, LineForm& form) {
  const Bracket& bracket = *line.blocks->casoContrario;
  const Jump end = text.BlockEnd(line, bracket);
  if (!end.found || !ReadDepth(bracket.depth, form.depth)) return LineKind::Plain;
  form.jump = Through(text, end.next);
  return LineKind::Else;
}

LineKind ReadBlocks(Run& run, const RunnableText& text, const Line& line, LineForm& form) {
  const Blocks& blocks = *line.blocks;
  const int words = (blocks.enquanto ? 1 : 0) + (blocks.repita ? 1 : 0) + (blocks.se ? 1 : 0) +
                    (blocks.fimSe ? 1 : 0) + (blocks.casoContrario ? 1 : 0);
  if (words != 1) return LineKind::Plain;
  if (blocks.enquanto) return ReadWhile(run, text, line, form);
  if (blocks.se) return ReadIf(run, text, line, form);
  if (blocks.casoContrario) return ReadElse(text, line, form);
  if (blocks.repita) {
    const Jump start = text.LoopStart(line);
    if (!start.found) return LineKind::Plain;
    form.next = start.next;
    return LineKind::Repeat;
  }
  // The word goes on to its execution, where nobody knows it.
  if (!ReadDepth(blocks.fimSe->depth, form.depth) || !line.opening.word.starts_with("FimSe["))
    return LineKind::Plain;
  return ReadTarget(run, line.opening.word, form, LineKind::EndIf);
}

LineKind ReadExecution(Run& run, const Line& line, LineForm& form) {
  const Opening& opening = line.opening;
  if (opening.declares) return LineKind::Plain;
  if (opening.callsSub) return LineKind::Sub;
  if (opening.returns) {
    form.term = std::make_unique<const TermForm>(run, opening.rest);
    return LineKind::Return;
  }
  return ReadTarget(run, opening.word, form, LineKind::VariableOrCommand);
}

LineKind Read(Run& run, const RunnableText& text, const Line& line, LineForm& form) {
  switch (line.road) {
    case Road::Increment:
    case Road::Decrement:
      form.change = line.road == Road::Increment ? 1 : -1;
      return ReadTarget(run, line.variable, form, LineKind::Step);
    case Road::Add:
    case Road::Subtract:
      form.change = line.road == Road::Add ? 1 : -1;
      form.term = std::make_unique<const TermForm>(run, line.expression);
      return ReadTarget(run, line.variable, form, LineKind::Compound);
    case Road::EndFunction:
      return LineKind::End;
    case Road::Blocks:
      return line.blocks ? ReadBlocks(run, text, line, form) : ReadExecution(run, line, form);
    default:
      return LineKind::Plain;
  }
}

}  // namespace

LineForm::LineForm() = default;
LineForm::~LineForm() = default;

void ReadForm(Run& run, const RunnableText& text, const Line& line) {
  LineForm& form = line.form;
  form.kind = Read(run, text, line, form);
  const bool leadsOn =
      form.kind != LineKind::Plain && form.kind != LineKind::Repeat && form.kind != LineKind::End;
  if (leadsOn) form.next = Through(text, text.Next(line));
}

}  // namespace tessera
