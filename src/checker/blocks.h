// The blocks of an editor as their writer nested them, and what is wrong with them.
#pragma once

#include <vector>

#include "checker/context.h"

namespace tessera::check {

struct Block {
  Form form = Form::Se;  // or Enquanto
  std::size_t open = 0;  // statements
  std::size_t close = kNone;
  std::vector<std::size_t> alternatives = {};  // each CasoContrario
  std::size_t parent = kNone;
};

struct BlockMap {
  std::vector<Block> blocks;
  // The innermost block around each statement, a row of `blocks`, or kNone. A block's opening and closing
  // words stand outside of it.
  std::vector<std::size_t> around;
};

// Reads the blocks and tells those that are open, crossed or without an opening.
BlockMap CheckBlocks(Context& context);

}  // namespace tessera::check
