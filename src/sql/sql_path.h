// How the raw text behind `SQL` is cut: the path, "=" where a field is written, and the arguments. The path
// is cut off before any call is looked for, so that a statement's own text stays whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::sql {

struct SqlPath {
  std::vector<std::string> pieces;  // between the points, trimmed
  bool writes = false;              // "=" stands behind the path
  std::string_view rest;            // what stands behind it
};

SqlPath CutPath(std::string_view arguments);

// The arguments, cut at the commas outside quotes and parentheses.
std::vector<std::string_view> CutArguments(std::string_view text);

// The inside of a text that is one whole literal; nothing for any other text.
std::optional<std::string_view> WholeLiteral(std::string_view text);

}  // namespace tessera::sql
