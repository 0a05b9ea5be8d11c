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

struct Include {
  std::string file;
  std::string room;
  std::string target;
};

// The room that a quoted include names, or nothing for a header of the file's own folder.
std::string RoomOf(const std::string& include) {
  const std::size_t slash = include.find('/');
  return slash == std::string::npos ? std::string() : include.substr(0, slash);
}

bool IsSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp";
}

std::vector<Include> IncludesUnder(const fs::path& folder, const std::string& room) {
  std::vector<Include> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!IsSource(entry.path())) continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      const std::string opening = "#include \"";
      if (!line.starts_with(opening)) continue;
      const std::string include =
          line.substr(opening.size(), line.find('"', opening.size()) - opening.size());
      const std::string target = RoomOf(include);
      if (!target.empty()) found.push_back({entry.path().string(), room, target});
    }
  }
  return found;
}

std::vector<Include> AllIncludes() {
  const fs::path root = TESSERA_SOURCE_DIR;
  std::vector<Include> all = IncludesUnder(root / "tool", "tool");
  for (const auto& entry : fs::directory_iterator(root / "src")) {
    if (!entry.is_directory()) continue;
    for (Include& include : IncludesUnder(entry.path(), entry.path().filename().string())) {
      all.push_back(std::move(include));
    }
  }
  return all;
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
  const std::vector<Include> includes = AllIncludes();
  ASSERT_GT(includes.size(), 50u) << "the include lines were not found";
  for (const Include& include : includes) {
    ASSERT_TRUE(kFloors.contains(include.target)) << include.file << " includes " << include.target;
    EXPECT_TRUE(IsAllowed(include.room, include.target)) << include.file << " includes " << include.target;
  }
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
    std::ifstream file(fs::path(TESSERA_SOURCE_DIR) / "src" / headers[i]);
    ASSERT_TRUE(file) << headers[i];
    for (std::string line; std::getline(file, line);) {
      if (!line.starts_with("#include \"")) continue;
      const std::string include = line.substr(10, line.find('"', 10) - 10);
      if (RoomOf(include) == "windows") {
        if (std::find(headers.begin(), headers.end(), include) == headers.end()) headers.push_back(include);
      } else {
        EXPECT_LE(kFloors.at(RoomOf(include)), 1) << headers[i] << ": " << include;
      }
    }
  }
}

TEST(Floors, WindowToolkitHeadersStayInTheirRoom) {
  const std::set<std::string> allowed = {"qt", "qtmedia", "qtpaper", "qtsql", "qttext", "qtweb", "qtwindows"};
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(TESSERA_SOURCE_DIR) / "src")) {
    if (!IsSource(entry.path())) continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      EXPECT_FALSE(line.starts_with("#include <QtWidgets>")) << entry.path();
      if (!line.starts_with("#include <Q")) continue;
      const fs::path relative = fs::relative(entry.path(), fs::path(TESSERA_SOURCE_DIR) / "src");
      EXPECT_TRUE(allowed.contains(relative.begin()->string())) << entry.path() << ": " << line;
    }
  }
}

// Files whose whole purpose is a piece of the system that no service stands for.
const std::set<std::string> kOfTheSystem = {
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
  const fs::path root = fs::path(TESSERA_SOURCE_DIR) / "src";
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string name = fs::relative(entry.path(), root).string();
    if (!IsSource(entry.path()) || name.starts_with("platform/") || kOfTheSystem.contains(name)) continue;
    if (kFloors.at(RoomOf(name)) >= kHosts) continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);)
      EXPECT_EQ(AskedOfTheSystem(line), "") << name << ": " << line;
    ++files;
  }
  EXPECT_GT(files, 200);
}

// docs/open-rules.md tells the choices by the files that make them.
TEST(OpenRules, EachFileWithAChoiceIsListed) {
  const fs::path root = TESSERA_SOURCE_DIR;
  std::ifstream page(root / "docs/open-rules.md");
  const std::string listed{std::istreambuf_iterator<char>(page), std::istreambuf_iterator<char>()};
  ASSERT_FALSE(listed.empty());
  for (const char* top : {"src", "tool"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / top)) {
      if (!IsSource(entry.path())) continue;
      std::ifstream file(entry.path());
      const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      if (text.find("OPEN:") == std::string::npos) continue;
      const std::string name = fs::relative(entry.path(), root / top).string();
      EXPECT_NE(listed.find(name), std::string::npos)
          << name << " makes a choice that the page does not tell";
    }
  }
}

}  // namespace
