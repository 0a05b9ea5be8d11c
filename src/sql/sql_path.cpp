#include "sql/sql_path.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera::sql {

namespace {

std::vector<std::string> AtPoints(std::string_view path) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t point = path.find('.');
    pieces.emplace_back(Trim(path.substr(0, point)));
    if (point == std::string_view::npos) return pieces;
    path.remove_prefix(point + 1);
  }
}

}  // namespace

SqlPath CutPath(std::string_view arguments) {
  const std::size_t mark = arguments.find_first_of(",=\"");
  const std::size_t end = std::min(mark, arguments.size());
  SqlPath path;
  path.pieces = AtPoints(Trim(arguments.substr(0, end)));
  if (mark == std::string_view::npos) return path;
  path.writes = arguments[mark] == '=';
  path.rest = Trim(arguments.substr(arguments[mark] == '"' ? mark : mark + 1));
  return path;
}

std::vector<std::string_view> CutArguments(std::string_view text) {
  std::vector<std::string_view> arguments;
  std::size_t begin = 0;
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    const bool end = i == text.size();
    if (!end && text[i] == '"') quoted = !quoted;
    if (!end && !quoted && text[i] == '(') ++depth;
    if (!end && !quoted && text[i] == ')') --depth;
    if (!end && (quoted || depth > 0 || text[i] != ',')) continue;
    arguments.push_back(Trim(text.substr(begin, i - begin)));
    begin = i + 1;
  }
  return arguments;
}

std::optional<std::string_view> WholeLiteral(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.find('"', 1) != text.size() - 1) return std::nullopt;
  return text.substr(1, text.size() - 2);
}

}  // namespace tessera::sql
