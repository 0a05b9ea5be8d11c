// The course of a program: labels and jumps, what is never reached, and loops that never end or let nothing
// in.
#pragma once

#include "checker/blocks.h"
#include "checker/context.h"
#include "checker/summaries.h"

namespace tessera::check {

void CheckJumps(Context& context, const BlockMap& blocks);
void CheckReach(Context& context, const BlockMap& blocks);
void CheckLoops(Context& context, const BlockMap& blocks, Summaries& summaries);

// Functions that call themselves, by themselves or by others.
void CheckRecursion(Context& context, const BlockMap& blocks);

}  // namespace tessera::check
