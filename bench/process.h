// Runs a program as a process and tells what it cost.
#pragma once

#include <string>
#include <vector>

namespace tessera::bench {

struct Measured {
  double busy = 0;     // milliseconds of the processor, the process's own and the system's for it
  double elapsed = 0;  // milliseconds
  double peak = 0;     // megabytes
  std::string output;  // what it wrote
};

// The program of `words`, with no input. Ends the benchmark where it fails.
Measured RunOnce(const std::vector<std::string>& words);

// The quickest of several rounds: what is slower than that is somebody else's work.
Measured Run(const std::vector<std::string>& words, int rounds = 5);

}  // namespace tessera::bench
