// Assignments in all their forms: "=", "++", "--", "+=", "-=".
#pragma once

#include "checker/context.h"

namespace tessera::check {

void CheckAssignment(Context& context);

}  // namespace tessera::check
