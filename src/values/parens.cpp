#include "values/parens.h"

#include "text/one_based.h"

namespace tessera {

std::string MarkParens(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 16);
  int level = 0;
  for (const char c : text) {
    if (c == '(') {
      ++level;
      out.append("(").append(std::to_string(level)).append("]");
    } else if (c == ')') {
      out.append("[").append(std::to_string(level)).append(")");
      --level;
    } else {
      out.push_back(c);
    }
  }
  return out;
}

// KEPT: only marks of one digit are recognised, which limits nesting to nine levels
// (Parens.MarksOfTwoDigitsStay).
std::string StripParens(std::string_view text) {
  if (!Contains(text, "[") && !Contains(text, "]")) return std::string(text);
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char twoOn = i + 2 < text.size() ? text[i + 2] : '\0';
    if (text[i] == '(' && twoOn == ']') {
      out.push_back('(');
      i += 2;
    } else if (text[i] == '[' && twoOn == ')') {
      out.push_back(')');
      i += 2;
    } else {
      out.push_back(text[i]);
    }
  }
  return out;
}

}  // namespace tessera
