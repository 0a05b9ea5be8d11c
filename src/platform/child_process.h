// Starting other programs.
#pragma once

#include <string>
#include <vector>

namespace tessera {

// Starts a program with its arguments and does not wait; the process number. The program is a path, or a name
// that is searched where the system keeps programs. It reads nothing from this process's input and writes
// nothing to its output. `environment` are further variables, "NAME=value". Failures: 53 for a program that
// does not exist, 70 for one that may not be started, 5 for any other refusal of the system.
int StartProgram(const std::vector<std::string>& command, const std::vector<std::string>& environment);

// Lets go of started programs that have ended.
void ForgetEnded(std::vector<int>& processes);

// The words of a command line: parted by blanks, a word in double quotes may hold some.
std::vector<std::string> CommandWords(const std::string& line);

}  // namespace tessera
