#include "tool/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace tessera {

namespace {

bool IsColoured(int descriptor) {
  const char* refused = std::getenv("NO_COLOR");
  return isatty(descriptor) != 0 && (refused == nullptr || *refused == '\0');
}

}  // namespace

bool ErrorsAreColoured() {
  return IsColoured(STDERR_FILENO);
}

bool OutputIsColoured() {
  return IsColoured(STDOUT_FILENO);
}

bool ErrorsAreRead() {
  return isatty(STDERR_FILENO) != 0;
}

void PrintError(std::string_view message) {
  const std::string_view label = ErrorsAreColoured() ? "\033[1;31merro:\033[0m " : "erro: ";
  std::cerr << "tessera: " << label << message << '\n';
}

void PrintRemark(std::string_view message) {
  std::cerr << "tessera: " << message << '\n';
}

std::string Counted(std::uint64_t number, std::string_view one, std::string_view many) {
  return std::to_string(number).append(number == 1 ? one : many);
}

}  // namespace tessera
