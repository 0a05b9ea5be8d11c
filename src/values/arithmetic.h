// The small precedence parser that computes an arithmetic text whose names have been replaced by numbers.
#pragma once

#include <string_view>

#include "platform/stack_limit.h"
#include "text/number.h"

namespace tessera {

// The value of the text, rounded to 15 significant digits. A text that is no arithmetic, a second point in a
// number and "/" by zero yield 0. Failures: 11 for "%" by zero, 6 for values beyond 32 bits in "%", "&", "@"
// and for a result beyond the exact decimals, 5 for a power that is no real number, 28 for nesting that the
// stack can't hold.
ExactDecimal ArithmeticEval(std::string_view expression, const StackLimit& stack);

// The grammar of it: what an operator is, the level that its right side is read at, and whether it ends a
// level: operators of the same or a higher rank do. Bit 1 of a level tells that its number has a point.
bool IsOperator(char c);
int RankOf(char c);
bool StopsLevel(char c, int level);

}  // namespace tessera
