// FAST: what a line does, read once, beside the line itself. A line gets its form when it comes round for the
// second time, so that a program that runs once through its text pays nothing for it.
#pragma once

#include <cstdint>
#include <memory>

#include "values/argument_text.h"
#include "values/condition_form.h"
#include "values/name_form.h"
#include "values/term_form.h"

namespace tessera {

class AssignmentForm;
class RunnableText;
struct Line;

struct LineForm {
  enum class Kind : std::uint8_t {
    New,       // not run yet
    Seen,      // run once
    Plain,     // left to the rules
    Step,      // x++, x--
    Compound,  // x += e, x -= e
    While,     // Enquanto
    Repeat,    // Repita
    If,        // Se
    EndIf,     // FimSe
    Else,      // CasoContrario
    Return,    // Retorne
    End,       // FimFuncao
    Sub,       // a call of a sub
    VariableOrCommand,
  };

  Kind kind = Kind::New;
  std::uint8_t depth = 0;   // of a Se and what belongs to it
  std::int32_t change = 0;  // of a step, or the sign of a compound form
  NameForm target;
  const Line* next = nullptr;  // where the line behind it leads; where a Repita leads
  const Line* jump = nullptr;  // where a condition that fails leads
  bool jumpEndsBlock = false;  // behind the FimSe

  std::unique_ptr<const ConditionForm> condition;
  std::unique_ptr<const TermForm> term;
  std::unique_ptr<const AssignmentForm> assignment;  // made where the word turns out to be a variable
  std::unique_ptr<ArgumentForms> arguments;          // made where it turns out to be a command
  const RunnableText* sub = nullptr;

  LineForm();
  ~LineForm();
  LineForm(const LineForm&) = delete;
  LineForm& operator=(const LineForm&) = delete;
};

// Finds out what `line` of `text` does.
void ReadForm(Run& run, const RunnableText& text, const Line& line);

}  // namespace tessera
