// The right side of an assignment: joined terms, direct calls, replaced calls and comma lists.
#pragma once

#include <string>
#include <string_view>

#include "engine/engine.h"
#include "engine/line.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

// Evaluates the right side and writes it to `name`. `numericTarget` is false where the variable is text.
void AssignStatement(Engine& engine, Run& run, const RightSide& right, std::string_view name,
                     bool numericTarget);

// The rest of it, from the replacing of calls on, for a right side without " & " that has come to be `text`,
// and from the replacing of the language's calls on. So many calls were replaced before.
void AssignFrom(Engine& engine, Run& run, std::string text, std::string_view name, bool numericTarget,
                int replacedBefore = 0);
void AssignReplaced(Engine& engine, Run& run, std::string text, std::string_view name, bool numericTarget,
                    int replacedBefore = 0);

// The value in the form that its text would read back as: a float keeps 15 digits.
Value AsWritten(Value value);

// What one term between two " & " adds.
std::string JoinedTerm(Run& run, std::string_view term);

}  // namespace tessera
