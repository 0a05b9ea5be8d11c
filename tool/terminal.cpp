#include "tool/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace tessera {

namespace {

bool ErrorsAreColoured() {
  const char* refused = std::getenv("NO_COLOR");
  return isatty(STDERR_FILENO) != 0 && (refused == nullptr || *refused == '\0');
}

}  // namespace

void PrintError(std::string_view message) {
  const std::string_view label = ErrorsAreColoured() ? "\033[1;31merro:\033[0m " : "erro: ";
  std::cerr << "tessera: " << label << message << '\n';
}

void PrintRemark(std::string_view message) {
  std::cerr << "tessera: " << message << '\n';
}

}  // namespace tessera
