// Comments that silence rules: `' tessera: permite T0306` for the line that it stands in, or for the next one
// where it stands alone; `' tessera: permite no programa T0306, T0507` everywhere.
#pragma once

#include <map>
#include <set>
#include <string>

#include "checker/source.h"

namespace tessera::check {

class Silence {
 public:
  void Read(const Source& source);
  bool Allows(const Finding& finding) const;

 private:
  std::set<std::string> everywhere_;
  std::map<std::pair<std::size_t, std::size_t>, std::set<std::string>> lines_;  // by editor and line
};

}  // namespace tessera::check
