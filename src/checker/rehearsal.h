// The rehearsal of an expression: the language's own evaluators compute it with made-up values, and the result
// is held against what the expression reads. What no rule foresees is found here.
#pragma once

#include "checker/expression.h"

namespace tessera::check {

// Tells an expression that does not compute what it reads. Only those with parentheses are rehearsed: all
// others are settled by their operators.
void Rehearse(Context& context, Tokens tokens, Place place, Type target);

}  // namespace tessera::check
