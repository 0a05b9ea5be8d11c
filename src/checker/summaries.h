// What a routine does to the program, with all that it calls: which variables it may change, and whether it
// lets events through.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "checker/names.h"

namespace tessera::check {

struct Summary {
  std::set<std::string, std::less<>> writes;  // names in upper case
  bool yields = false;                        // lets events in
  bool writesAnything = false;                // a command writes variables that the text doesn't name
  bool leaves = false;                        // jumps or ends the program
};

// Whether a command by that word, in upper case, writes variables without an assignment.
bool WritesVariables(std::string_view word);

class Summaries {
 public:
  explicit Summaries(const Names& names) : names_(names) {}

  // Of the statements from `begin` to one before `end` of an editor, and of all that they call.
  Summary Of(std::size_t editor, std::size_t begin, std::size_t end);

 private:
  // What statements do by themselves, and whom they call.
  struct Part {
    Summary own;
    std::vector<const RoutineRef*> calls;
  };

  const Part& PartOf(const RoutineRef& routine);
  Part Read(std::size_t editor, std::size_t begin, std::size_t end) const;
  void TakeCalls(Part& part, Tokens tokens) const;

  const Names& names_;
  std::map<const Routine*, Part> known_;
};

}  // namespace tessera::check
