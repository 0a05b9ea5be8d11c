// Functions and subs: their heads, ends and results, their names among each other, and what hides them.
#pragma once

#include "checker/blocks.h"
#include "checker/context.h"

namespace tessera::check {

// The routines of one editor.
void CheckRoutines(Context& context, const BlockMap& blocks);

// Those of all editors among each other. `context` is the editor's whose findings are sought.
void CheckRoutineNames(Context& context);

}  // namespace tessera::check
