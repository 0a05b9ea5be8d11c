// Tables of cases as people read and write them: what is given, and what comes of it.
//
//     # A heading, which is the name of a test
//     Escreva 1 + 1 -> 2
//     Escreva 1
//     Escreva 2
//     -> 1
//     -> 2
//
// What is given may take several lines; what comes of it stands behind "->", a line each.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace tessera::test {

struct TableCase {
  std::string given;
  std::string result;  // each line with its end
};

struct Table {
  std::string heading;
  std::vector<TableCase> cases;
};

// The tables of a file below the folder of the tests; a file that is missing or has no heading fails the
// test.
inline std::vector<Table> TablesOf(const std::string& name) {
  std::ifstream file(TESSERA_SOURCE_DIR "/tests/" + name);
  std::vector<Table> tables;
  std::string given;
  bool isAnswered = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("# ")) {
      EXPECT_EQ(given, "") << name << ": nothing comes of it";
      tables.push_back({line.substr(2), {}});
    } else if (!line.empty() && !tables.empty()) {
      std::vector<TableCase>& cases = tables.back().cases;
      const std::size_t mark = line.starts_with("->") ? 0 : line.find(" ->");
      if (mark > 0) {
        given += (given.empty() ? "" : "\n") + line.substr(0, mark);
        isAnswered = false;
      }
      if (mark == std::string::npos) continue;
      const std::size_t text = line.find("->") + 2;
      if (!isAnswered) cases.push_back({std::exchange(given, {}), {}});
      cases.back().result += (text < line.size() ? line.substr(text + 1) : "") + "\n";
      isAnswered = true;
    }
  }
  EXPECT_EQ(given, "") << name << ": nothing comes of it";
  EXPECT_FALSE(tables.empty()) << name;
  return tables;
}

// The heading as a name of a test: its letters and digits, each word with a capital.
inline std::string NameOfTable(const testing::TestParamInfo<Table>& info) {
  std::string name;
  bool begins = true;
  for (const char c : info.param.heading) {
    const bool isOfWord = std::isalnum(static_cast<unsigned char>(c)) != 0;
    if (isOfWord) name += static_cast<char>(begins ? std::toupper(c) : c);
    begins = !isOfWord;
  }
  return name;
}

inline void PrintTo(const Table& table, std::ostream* stream) {
  *stream << table.heading;
}

}  // namespace tessera::test
