#include "prepare/tagging.h"

#include <algorithm>

#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kSourceLineMark = "§#"_w;
constexpr std::size_t kSourceHeadWidth = 11;  // "§#nnnnn$#nn"

// Calls `use` with each line that a CR LF ends.
template <typename Use>
void ForEachLine(std::string_view text, Use use) {
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(kCrLf, begin);
    if (end == std::string_view::npos) return;
    use(text.substr(begin, end - begin));
    begin = end + kCrLf.size();
  }
}

// Copies what stands in front of the next character that stops the copying; gives its offset, or the text's
// length.
template <typename Stops>
std::size_t CopyUpTo(std::string& out, std::string_view text, std::size_t from, Stops stops) {
  from = std::min(from, text.size());
  std::size_t end = from;
  while (end < text.size() && !stops(text[end])) ++end;
  out.append(text.substr(from, end - from));
  return end;
}

// KEPT: the string flag survives line ends, so that an unclosed string hides the comments of the lines below
// it (Tagging.AnUnclosedStringHidesTheCommentsBelow).
std::string RemoveComments(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  const auto stops = [](char c) { return c == '"' || c == '\''; };
  bool inString = false;
  for (std::size_t i = CopyUpTo(out, text, 0, stops); i < text.size();
       i = CopyUpTo(out, text, i + 1, stops)) {
    if (text[i] == '"') inString = !inString;
    if (text[i] == '\'' && !inString) {
      i = text.find('\r', i);
      if (i == std::string_view::npos) break;
    }
    out.push_back(text[i]);
  }
  return out;
}

std::string SplitAtSemicolons(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 16);
  const auto stops = [](char c) { return c == '"' || c == '\r' || c == ';'; };
  bool inString = false;
  for (std::size_t i = CopyUpTo(out, text, 0, stops); i < text.size();
       i = CopyUpTo(out, text, i + 1, stops)) {
    const char c = text[i];
    if (c == '"') inString = !inString;
    if (c == '\r') inString = false;
    if (c != ';' || inString) {
      out.push_back(c);
      continue;
    }
    out.append(kCrLf);
    const char next = i + 1 < text.size() ? text[i + 1] : '\0';
    if (next == ' ') i += 1;
    if (next == '\r') i += 2;
  }
  return out;
}

// KEPT: a single operator behind a blank gets no blank behind it; the statement forms rest on this
// (Tagging.ComparisonOperatorsAreSpaced).
std::string SpaceOperators(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  const auto stops = [](char c) { return c == '"' || c == '<' || c == '=' || c == '>'; };
  for (std::size_t i = CopyUpTo(out, text, 0, stops); i < text.size();
       i = CopyUpTo(out, text, i + 1, stops)) {
    const char c = text[i];
    const std::string_view pair = text.substr(i, 2);
    if (pair == "<=" || pair == ">=" || pair == "<>") {
      out.append(" ").append(pair).append(" ");
      ++i;
    } else if ((c == '<' || c == '=' || c == '>') && (i == 0 || text[i - 1] != ' ')) {
      out.append({' ', c, ' '});
    } else {
      out.push_back(c);
    }
    if (c == '"') {
      const std::size_t close = text.find('"', i + 1);
      const std::size_t end = close == std::string_view::npos ? text.size() : close + 1;
      out.append(text.substr(i + 1, end - i - 1));
      i = end - 1;
    }
  }
  return out;
}

}  // namespace

std::string TagSourceLines(std::string_view text, std::int16_t editor) {
  const std::string source = std::string(text).append(kCrLf);
  std::string out;
  out.reserve(source.size() * 2);
  int lineNumber = 0;
  ForEachLine(source, [&](std::string_view line) {
    out.append(kSourceLineMark).append(ZeroFilled(lineNumber, 5)).append("$#").append(ZeroFilled(editor, 2));
    out.append(" ").append(Trim(line)).append(kCrLf);
    ++lineNumber;
  });
  return out;
}

std::string NormaliseSource(std::string_view text) {
  return SpaceOperators(SplitAtSemicolons(RemoveComments(text)));
}

std::string NumberStatements(std::string_view text) {
  std::string out;
  out.reserve(text.size() * 2);
  int statement = 0;
  std::string head;
  ForEachLine(text, [&](std::string_view sourceLine) {
    std::string line(Trim(sourceLine));
    if (!line.starts_with(kSourceLineMark)) line = head + " " + line;
    head = Left(line, kSourceHeadWidth);
    if (line.size() <= kSourceHeadWidth + 1) return;
    out.append("&#").append(ZeroFilled(statement, 5)).append(line).append(kCrLf);
    ++statement;
  });
  return out;
}

}  // namespace tessera
