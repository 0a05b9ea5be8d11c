// The one table that a benchmark prints: a figure, and the goal that it is held against.
#pragma once

#include <string>
#include <vector>

namespace tessera::bench {

struct Figure {
  std::string work;
  double value;
  const char* unit;
  double goal = 0;          // at most; 0 for a figure that is only told
  std::string beside = {};  // the same work done by others
};

class Table {
 public:
  // Prints the heading of a part.
  void Begin(const std::string& part);
  // Prints a line. A goal is missed by more than a tenth.
  void Add(const Figure& figure);
  // Prints the goals that were missed. False if there are any.
  bool End() const;

 private:
  std::vector<std::string> missed_;
};

}  // namespace tessera::bench
