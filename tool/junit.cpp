#include "tool/junit.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <string_view>

namespace tessera {

namespace {

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ' || c == '\n' || c == '\t') escaped += c;
    }
  }
  return escaped;
}

}  // namespace

std::string JUnitText(const std::vector<TestResult>& results) {
  const auto failures =
      std::count_if(results.begin(), results.end(), [](const TestResult& r) { return !r.failure.empty(); });
  std::chrono::duration<double> time{};
  for (const TestResult& result : results) time += result.time;
  std::ostringstream text;
  text << std::fixed << std::setprecision(3);
  text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite name=\"tessera\" tests=\""
       << results.size() << "\" failures=\"" << failures << "\" time=\"" << time.count() << "\">\n";
  for (const TestResult& result : results) {
    text << "    <testcase classname=\"tessera\" name=\"" << Escaped(result.name) << "\" time=\""
         << result.time.count() << "\"";
    if (result.failure.empty()) {
      text << "/>\n";
      continue;
    }
    const std::string_view first = std::string_view(result.failure).substr(0, result.failure.find('\n'));
    text << ">\n      <failure message=\"" << Escaped(first) << "\">" << Escaped(result.failure)
         << "</failure>\n    </testcase>\n";
  }
  text << "  </testsuite>\n</testsuites>\n";
  return text.str();
}

}  // namespace tessera
