// The variables that every program finds declared. What they start with is told by who owns it.
#pragma once

#include <span>
#include <string_view>

namespace tessera {

struct Builtin {
  std::string_view name;
  std::string_view type;
  std::string_view help;  // UTF-8
};

// In the order of their declaration.
std::span<const Builtin> Builtins();

}  // namespace tessera
