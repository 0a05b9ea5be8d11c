// What stands behind `Se` and `Enquanto`.
#pragma once

#include "checker/context.h"

namespace tessera::check {

void CheckCondition(Context& context, Tokens condition);

}  // namespace tessera::check
