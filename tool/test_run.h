// One run of a user's test: the program in a copy of its folder, with user folders of its own, so that a test
// leaves nothing and finds nothing that another one left.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "tool/test_files.h"

namespace tessera {

struct TestSetting {
  bool windows = false;               // with real windows that nobody sees
  std::chrono::seconds patience{60};  // a program that takes longer is ended
  // Where a person at its windows writes the script; empty where the test's own one is played.
  std::filesystem::path record = {};
};

struct TestRun {
  std::string output;   // what it wrote, in order, with the line of its exit status
  std::string problem;  // why it did not run to its end, in the user's language; empty where it did
  std::chrono::duration<double> time{};
};

// May be called from several threads.
TestRun RunTest(const ProgramTest& test, const TestContent& content, const TestSetting& setting);

// What differs, line by line, as a person reads it.
std::string Difference(const std::string& expected, const std::string& output);

}  // namespace tessera
