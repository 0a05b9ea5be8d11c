#include "work.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <vector>

#include "process.h"

namespace tessera::bench {

namespace {

namespace fs = std::filesystem;

struct Work {
  const char* name;  // of the program
  const char* what;
  double goal;  // nanoseconds
};

constexpr Work kWorks[] = {
    {"loop", "loop turn", 9},
    {"branch", "branch", 66},
    {"float", "float sum", 137},
    {"text", "text operation", 190},
    {"append", "append to a text", 75},
    {"sieve", "sieve step", 23},
    {"matrix", "matrix step", 35},
    {"function", "function call", 114},
    {"sub", "sub call", 44},
    {"file", "file line written and read", 205},
};

struct Language {
  const char* name;
  const char* program;
  const char* script;
};

constexpr Language kLanguages[] = {
    {"CPython", "python3", "work.py"}, {"tclsh", "tclsh", "work.tcl"}, {"Lua", "lua5.4", "work.lua"}};

bool IsInstalled(std::string_view program) {
  const char* path = std::getenv("PATH");
  std::string_view rest = path == nullptr ? "" : path;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    if (fs::exists(fs::path(rest.substr(0, end)) / program)) return true;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

// "' units: N" in the first line of a program.
double UnitsOf(const fs::path& program) {
  std::ifstream file(program);
  std::string line;
  std::getline(file, line);
  const std::size_t colon = line.find(':');
  return colon == std::string::npos ? 0 : std::strtod(line.c_str() + colon + 1, nullptr);
}

std::string WithoutEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

// The same work in the other languages that are here, in nanoseconds. A result that differs ends it all: the
// work was not the same.
std::string Beside(const Place& place, const Work& work, double units, const std::string& result) {
  constexpr int kFewRounds = 2;
  std::string beside;
  for (const Language& language : kLanguages) {
    if (!IsInstalled(language.program)) continue;
    const Measured other =
        Run({language.program, (place.programs / language.script).string(), work.name}, kFewRounds);
    if (WithoutEnd(other.output) != result) {
      std::fprintf(stderr, "bench: %s: %s gives %s, and not %s\n", work.name, language.name,
                   other.output.c_str(), result.c_str());
      std::exit(1);
    }
    beside.append(beside.empty() ? "" : ", ").append(language.name).append(" ");
    beside.append(std::to_string(static_cast<int>(other.busy * 1e6 / units)));
  }
  return beside;
}

// Calls of routines that stand behind so many others.
fs::path WriteFarProgram(const fs::path& folder, int routines, int calls) {
  fs::path program = folder / ("far_" + std::to_string(routines) + "_" + std::to_string(calls) + ".tsc");
  std::ofstream file(program);
  file << "Var n Inteiro, x Inteiro, y Inteiro\nEnquanto n < " << calls
       << "\nUltima()\ny = Dobro(n)\nn++\nRepita\n"
       << "FimJanela\nFimPrograma\n";
  for (int i = 0; i < routines; ++i) file << "Sub Nada" << i << "()\nx = " << i << "\nFimSub\n";
  file << "Sub Ultima()\nx++\nFimSub\nFuncao Dobro(a Inteiro) Numero\nRetorne a + a\nFimFuncao\n";
  return program;
}

}  // namespace

fs::path WriteStraightProgram(const fs::path& folder, int lines, int rounds) {
  fs::path program = folder / ("straight_" + std::to_string(lines) + "_" + std::to_string(rounds) + ".tsc");
  std::ofstream file(program);
  file << "Var volta Inteiro, x Inteiro\nEnquanto volta < " << rounds << "\n";
  for (int i = 0; i < lines; ++i) file << "x = " << i << "\n";
  file << "volta++\nRepita\nFimJanela\n";
  return program;
}

void MeasureWork(const Place& place, Table& table) {
  const auto run = [&](const fs::path& program) {
    return Run({place.tessera, "run", "--console", "--no-check", program.string()});
  };
  table.Begin("work");
  // Files are written where the programs stand.
  fs::copy(place.programs / "work", place.scratch / "work");
  fs::current_path(place.scratch);
  for (const Work& work : kWorks) {
    const fs::path program = place.scratch / "work" / (std::string(work.name) + ".tsc");
    const double units = UnitsOf(program);
    const Measured measured = run(program);
    table.Add({work.what, measured.busy * 1e6 / units, "ns", work.goal,
               Beside(place, work, units, WithoutEnd(measured.output))});
  }
  constexpr int kLines = 20'000;
  const Measured empty = run(WriteStraightProgram(place.scratch, 1, 1));
  const Measured once = run(WriteStraightProgram(place.scratch, kLines, 1));
  table.Add({"line of a long program, once", (once.busy - empty.busy) * 1e6 / kLines, "ns", 2000});
  table.Add({"a program of 20,000 lines", once.peak, "MB", 40});
  constexpr int kRounds = 100;
  const Measured often = run(WriteStraightProgram(place.scratch, kLines, kRounds));
  const Measured shorter = run(WriteStraightProgram(place.scratch, kLines / 20, kRounds * 20));
  table.Add({"a line in 20,000 lines against one in 1,000",
             (often.busy - once.busy) / (shorter.busy - empty.busy), "times"});
  constexpr int kCalls = 300'000;
  const auto calling = [&](int routines) {
    return run(WriteFarProgram(place.scratch, routines, kCalls)).busy -
           run(WriteFarProgram(place.scratch, routines, 0)).busy;
  };
  const double near = calling(50);
  table.Add({"call behind 500 routines against 50", calling(500) / near, "times", 1.05});
}

}  // namespace tessera::bench
