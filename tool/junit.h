// Results of tests in the XML form that services read (JUnit's).
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tessera {

struct TestResult {
  std::string name;
  std::chrono::duration<double> time{};
  std::string failure;  // why it is not right, with the differing lines; empty where it is
};

// The whole file, UTF-8. Characters that XML has no place for are left out.
std::string JUnitText(const std::vector<TestResult>& results);

}  // namespace tessera
