// The lines that the statement loop does not settle itself: declarations, calls of subs, `Retorne`,
// assignments, commands and errors, told apart by the line's first word.
#pragma once

#include "engine/engine.h"
#include "engine/line.h"

namespace tessera {

void ExecuteStatement(Engine& engine, Run& run, const Line& line);

}  // namespace tessera
