// One statement by what it is: declaration, assignment, command, call.
#pragma once

#include "checker/context.h"

namespace tessera::check {

void CheckStatement(Context& context);

}  // namespace tessera::check
