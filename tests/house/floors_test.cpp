// Reads the include lines of the source tree and holds them against the table of floors.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
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
    {"freeimage", 11}, {"qtmedia", 11}, {"qtweb", 12},   {"runtime", 12}, {"tool", 12},
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

// The rooms that a room's CMakeLists.txt names, behind `SHOWS` for its headers and `USES` for its other
// files.
std::set<std::string> NamedRooms(const std::string& room, const std::string& list) {
  std::ifstream file(fs::path(TESSERA_SOURCE_DIR) / "src" / room / "CMakeLists.txt");
  std::set<std::string> named;
  bool isInside = false;
  for (std::string word; file >> word;) {
    const bool isLast = word.ends_with(')');
    if (isLast) word.pop_back();
    if (isInside && kFloors.contains(word)) named.insert(word);
    if (word == "SHOWS" || word == "USES") isInside = word == list;
    if (isLast && !named.empty()) break;
  }
  return named;
}

// What a file sees that may include those rooms: they, and what their headers show.
std::set<std::string> Seen(const std::set<std::string>& named) {
  std::set<std::string> seen = named;
  for (const std::string& room : named) seen.merge(Seen(NamedRooms(room, "SHOWS")));
  return seen;
}

// The tool is no room; the parts that are loaded at first use link none; and the runtime beside its room
// links the host.
TEST(Floors, ARoomNamesWhatItIncludes) {
  for (const Include& include : AllIncludes()) {
    const bool isRoom = include.room != "tool" && include.room != "qtsql" && include.room != "qtpaper" &&
                        include.room != "curlnet" && include.room != "freeimage" &&
                        include.room != "sndsound" && include.room != "qtmedia" && include.room != "qtweb";
    const bool isRuntime = include.room == "runtime" && include.target == "qt";
    if (!isRoom || isRuntime || include.room == include.target) continue;
    std::set<std::string> named = NamedRooms(include.room, "SHOWS");
    if (!include.file.ends_with(".h")) named.merge(NamedRooms(include.room, "USES"));
    EXPECT_TRUE(Seen(named).contains(include.target)) << include.file << " includes " << include.target;
  }
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
  const std::set<std::string> allowed = {"qt", "qtmedia", "qtpaper", "qtsql", "qttext", "qtweb", "runtime"};
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
