// The rehearsal of an expression: the language's own evaluators compute it with made-up values, and the
// result is held against what the expression reads, computed as people compute. What no rule foresees is
// found here: text that is lost behind a call, sums that go on inside a parenthesis.
#pragma once

#include <memory>

#include "checker/expression.h"

namespace tessera::check {

// One stage for all expressions of a program. It is built when the first one needs it.
class Rehearsal {
 public:
  explicit Rehearsal(const Names& names);
  ~Rehearsal();
  Rehearsal(const Rehearsal&) = delete;
  Rehearsal& operator=(const Rehearsal&) = delete;

  // False where the language gives another value than the expression reads. True as well where that can't be
  // known.
  bool Agrees(const Context& context, Tokens tokens, Place place, Type target);

  // False where the values of a list, of a command or of a text's right side, are others than each by itself.
  bool AgreesInList(const Context& context, Tokens list, Place place);

 private:
  class Stage;

  const Names& names_;
  std::unique_ptr<Stage> stage_;
};

// Tells an expression that does not compute what it reads. Only those with parentheses are rehearsed: all
// others are settled by their operators.
void Rehearse(Context& context, Tokens tokens, Place place, Type target);

// Tells a list in which a call takes something from the values beside it.
void RehearseList(Context& context, Tokens list, Place place);

}  // namespace tessera::check
