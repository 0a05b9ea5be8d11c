// The right side of an assignment: joined terms, direct calls, replaced calls and comma lists.
#pragma once

#include <string_view>

#include "engine/engine.h"
#include "engine/line.h"
#include "values/run.h"

namespace tessera {

// Evaluates the right side and writes it to `name`. `numericTarget` is false where the variable is text.
void AssignStatement(Engine& engine, Run& run, const RightSide& right, std::string_view name,
                     bool numericTarget);

}  // namespace tessera
