// Rules that look at the whole program: names against each other, variables that nobody reads, files and
// databases.
#pragma once

#include <vector>

#include "checker/blocks.h"
#include "checker/context.h"
#include "checker/uses.h"

namespace tessera::check {

// What concerns the editor of `context`; `uses` has a row for each editor.
void CheckNames(Context& context, const std::vector<const Uses*>& uses);
void CheckOrder(Context& context, const BlockMap& blocks);
void CheckFiles(Context& context, const std::vector<const Uses*>& uses);
void CheckDatabases(Context& context);

}  // namespace tessera::check
