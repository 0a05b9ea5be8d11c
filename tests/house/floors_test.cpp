// Reads the include lines of the source tree and holds them against the table of floors.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// A room's floor; docs/house.md shows the same table.
const std::map<std::string, int> kFloors = {
    {"text", 0},       {"platform", 1}, {"language", 2}, {"image", 3},    {"prepare", 3},  {"values", 4},
    {"commands", 5},   {"engine", 6},   {"recorddb", 7}, {"sql", 7},      {"controls", 7}, {"checker", 7},
    {"windows", 8},    {"objects", 9},  {"reports", 10}, {"media", 10},   {"system", 10},  {"console", 11},
    {"qt", 11},        {"qtsql", 11},   {"qttext", 9},   {"qtpaper", 11}, {"curlnet", 11}, {"sndsound", 11},
    {"freeimage", 11}, {"qtmedia", 11}, {"qtweb", 12},   {"runtime", 12}, {"tool", 12},    {"qtwindows", 13},
};

// Doors within one floor: the tool stands on the program run that it shares with the runtime.
const std::set<std::pair<std::string, std::string>> kSameFloorAllowed = {{"tool", "runtime"}};

// A line of a source file, which is told by its place below src/, or by "tool/".
struct Line {
  std::string file;
  std::string text;
};

// The room that a path names, or nothing for a file of the same folder.
std::string RoomOf(const std::string& path) {
  const std::size_t slash = path.find('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

const std::vector<Line>& SourceLines() {
  static const std::vector<Line> lines = [] {
    std::vector<Line> all;
    const fs::path root = TESSERA_SOURCE_DIR;
    for (const auto& [top, base] : {std::pair(root / "tool", root), std::pair(root / "src", root / "src")}) {
      for (const auto& entry : fs::recursive_directory_iterator(top)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream file(entry.path());
        const std::string name = fs::relative(entry.path(), base).string();
        for (std::string line; std::getline(file, line);) all.push_back({name, line});
      }
    }
    return all;
  }();
  return lines;
}

// What a line includes in quotes; empty for another one.
std::string IncludedBy(const Line& line) {
  const std::string opening = "#include \"";
  if (!line.text.starts_with(opening)) return {};
  return line.text.substr(opening.size(), line.text.find('"', opening.size()) - opening.size());
}

bool IsAllowed(const std::string& from, const std::string& to) {
  return from == to || kFloors.at(to) < kFloors.at(from) || kSameFloorAllowed.contains({from, to});
}

TEST(Floors, EveryFolderHasItsFloor) {
  for (const auto& entry : fs::directory_iterator(fs::path(TESSERA_SOURCE_DIR) / "src")) {
    if (entry.is_directory()) {
      EXPECT_TRUE(kFloors.contains(entry.path().filename().string())) << entry.path();
    }
  }
}

TEST(Floors, NoRoomIncludesARoomAboveOrBesideIt) {
  int includes = 0;
  for (const Line& line : SourceLines()) {
    const std::string room = RoomOf(line.file), target = RoomOf(IncludedBy(line));
    if (room.empty() || target.empty()) continue;
    ASSERT_TRUE(kFloors.contains(target)) << line.file << " includes " << target;
    EXPECT_TRUE(IsAllowed(room, target)) << line.file << " includes " << target;
    ++includes;
  }
  EXPECT_GT(includes, 1000) << "the include lines were not found";
}

TEST(Floors, TheRuleRefusesWhatStandsAbove) {
  EXPECT_TRUE(IsAllowed("values", "text"));
  EXPECT_TRUE(IsAllowed("values", "values"));
  EXPECT_FALSE(IsAllowed("text", "values"));
  EXPECT_FALSE(IsAllowed("console", "qt"));
  EXPECT_FALSE(IsAllowed("prepare", "image"));
}

// What hosts stand on stays near the ground: the interfaces, and the headers of their own room by which they
// are told.
TEST(Floors, TheHostInterfacesKnowTheGroundAlone) {
  std::vector<std::string> headers = {"windows/display.h", "windows/form.h", "windows/window_directory.h"};
  for (std::size_t i = 0; i < headers.size(); ++i) {
    const std::string header = headers[i];
    int lines = 0;
    for (const Line& line : SourceLines()) {
      if (line.file != header) continue;
      ++lines;
      const std::string include = IncludedBy(line), room = RoomOf(include);
      if (room == "windows") {
        if (std::find(headers.begin(), headers.end(), include) == headers.end()) headers.push_back(include);
      } else if (!include.empty()) {
        EXPECT_LE(kFloors.at(room), 1) << header << ": " << include;
      }
    }
    EXPECT_GT(lines, 0) << header;
  }
}

TEST(Floors, WindowToolkitHeadersStayInTheirRoom) {
  const std::set<std::string> allowed = {"qt", "qtmedia", "qtpaper", "qtsql", "qttext", "qtweb", "qtwindows"};
  for (const Line& line : SourceLines()) {
    EXPECT_FALSE(line.text.starts_with("#include <QtWidgets>")) << line.file;
    if (!line.text.starts_with("#include <Q")) continue;
    EXPECT_TRUE(allowed.contains(RoomOf(line.file))) << line.file << ": " << line.text;
  }
}

// Files whose whole purpose is a piece of the system that no service stands for.
const std::set<std::string> kOfTheSystem = {
    "image/byte_sum.cpp",     // instructions of the processor
    "image/elf_file.cpp",     // the format's numbers alone
    "image/mapped_file.cpp",  // the running executable
    "image/mapped_file.h",
    "system/crash_watch.cpp",  // a program's last words in a signal
    "system/func_call.cpp",    // libraries that a program calls
    "system/library_search.cpp",
    "system/name_lookup.cpp",  // the line to another program
    "system/name_lookup.h",      "system/winsock.cpp",
};

// What a line of code asks of the system by itself; empty for nothing.
std::string AskedOfTheSystem(const std::string& line) {
  static const std::regex header("^#include <([a-z_/0-9]+\\.h|fstream|cstdio)>");
  static const std::regex call(
      "getenv|setenv|isatty|sleep_for|sleep_until|\"/proc|\"/"
      "dev|current_path\\(|fs::absolute|filesystem::absolute|"
      "(^|[^A-Za-z_.>])(::)?(open|fcntl|flock|link|rename|unlink|mkdir|access|poll|nanosleep|usleep)\\([^)]*"
      "c_str");
  std::smatch found;
  const std::string code = line.substr(0, line.find("//"));
  if (std::regex_search(code, found, header) || std::regex_search(code, found, call)) return found.str();
  return {};
}

TEST(Floors, TheLogicAsksItsServicesAndNotTheSystem) {
  EXPECT_EQ(AskedOfTheSystem("#include <unistd.h>"), "#include <unistd.h>");
  EXPECT_EQ(AskedOfTheSystem("  const char* home = std::getenv(\"HOME\");"), "getenv");
  EXPECT_NE(AskedOfTheSystem("  if (rename(from.c_str(), to.c_str()) != 0) return;"), "");
  EXPECT_EQ(AskedOfTheSystem("  files.Open(path.c_str());  // no getenv"), "");
  constexpr int kHosts = 11;
  int lines = 0;
  for (const Line& line : SourceLines()) {
    if (line.file.starts_with("platform/") || kOfTheSystem.contains(line.file)) continue;
    if (kFloors.at(RoomOf(line.file)) >= kHosts) continue;
    EXPECT_EQ(AskedOfTheSystem(line.text), "") << line.file << ": " << line.text;
    ++lines;
  }
  EXPECT_GT(lines, 20'000);
}

// docs/open-rules.md tells the choices by the files that make them.
TEST(OpenRules, EachFileWithAChoiceIsListed) {
  std::ifstream page(TESSERA_SOURCE_DIR "/docs/open-rules.md");
  const std::string listed{std::istreambuf_iterator<char>(page), {}};
  ASSERT_FALSE(listed.empty());
  for (const Line& line : SourceLines()) {
    if (line.text.find("OPEN:") == std::string::npos) continue;
    EXPECT_NE(listed.find(line.file), std::string::npos)
        << line.file << " makes a choice that the page does not tell";
  }
}

}  // namespace
