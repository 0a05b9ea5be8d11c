#include "table.h"

#include <cstdio>

namespace tessera::bench {

namespace {

constexpr double kTolerance = 1.1;

std::string Digits(double number) {
  std::string text(32, '\0');
  const int length = std::snprintf(text.data(), text.size(), "%.*f",
                                   number < 10    ? 2
                                   : number < 100 ? 1
                                                  : 0,
                                   number);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace

void Table::Begin(const std::string& part) {
  std::printf("\n%-46s %10s %-8s %8s %-7s %s\n", part.c_str(), "figure", "", "at most", "", "beside it");
}

void Table::Add(const Figure& figure) {
  const bool isMissed = figure.goal > 0 && figure.value > figure.goal * kTolerance;
  if (isMissed) missed_.push_back(figure.work);
  std::printf("%-46s %10s %-8s %8s %-7s %s\n", figure.work.c_str(), Digits(figure.value).c_str(), figure.unit,
              figure.goal > 0 ? Digits(figure.goal).c_str() : "",
              isMissed          ? "missed"
              : figure.goal > 0 ? "met"
                                : "",
              figure.beside.c_str());
  std::fflush(stdout);
}

bool Table::End() const {
  for (const std::string& work : missed_) std::printf("\nmissed: %s", work.c_str());
  std::printf("\n");
  return missed_.empty();
}

}  // namespace tessera::bench
