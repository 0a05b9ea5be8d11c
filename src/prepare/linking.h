// Block linking: each block word gets its nesting depth in square brackets, so that the end of a block can be
// found by a search. The words count only at the start of a statement and in exactly this case.
#pragma once

#include <string>
#include <string_view>

#include "language/words.h"

namespace tessera {

// `Se`, `CasoContrario` and `FimSe` with their depths.
std::string LinkSeBlocks(std::string_view text);

// `Enquanto` and `Repita` with their depths.
std::string LinkEnquantoBlocks(std::string_view text);

// The only structural check of a program: compares the counts of opening and closing words of a linked text.
// Empty, or the message for the user.
std::string CheckBlocks(std::string_view text);

// What the check says of a kind of block whose counts differ.
std::string OpenBlockMessage(const BlockPair& block);

}  // namespace tessera
