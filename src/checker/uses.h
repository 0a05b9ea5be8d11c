// Where an editor's names are read and written, whatever they turn out to be. Made of the editor's text
// alone.
#pragma once

#include <string>
#include <unordered_map>

#include "checker/outline.h"

namespace tessera::check {

struct Use {
  std::size_t reads = 0;
  std::size_t writes = 0;
  std::size_t writesOfCalls = 0;  // that only keep the result of a call
};

// By the name in upper case.
using Uses = std::unordered_map<std::string, Use>;

Uses ReadUses(const Source& source, const Outline& outline);

}  // namespace tessera::check
