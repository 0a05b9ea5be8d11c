// What a line takes from those above it where nothing comes between: files that are open already, windows
// that are closed.
#pragma once

#include "checker/context.h"

namespace tessera::check {

void CheckStraightRuns(Context& context);

}  // namespace tessera::check
