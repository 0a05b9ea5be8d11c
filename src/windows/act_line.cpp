#include "windows/act_line.h"

#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kBlankKey = "tecla 32";
constexpr std::string_view kBreakKey = "tecla 13";

void TypeRun(std::string_view run, std::vector<std::string>& lines) {
  const std::string_view typed = TrimRight(run);
  if (!typed.empty()) lines.push_back(ActLine({"digita", typed}));
  lines.insert(lines.end(), run.size() - typed.size(), std::string(kBlankKey));
}

}  // namespace

std::string ActLine(std::initializer_list<std::string_view> words) {
  std::string line;
  for (const std::string_view word : words) {
    if (!line.empty()) line += ' ';
    line += word;
  }
  return line;
}

std::string ActNumber(double value) {
  return NumberText(value);
}

std::string CaretLine(std::string_view name, std::size_t anchor, std::size_t caret) {
  std::string line = ActLine({"cursor", name, std::to_string(anchor)});
  return caret == anchor ? line : ActLine({line, std::to_string(caret)});
}

std::string KeyLine(int keyCode, KeyShift shift) {
  constexpr int kShift = 16;
  constexpr int kAlt = 18;
  constexpr int kCapsLock = 20;
  if (keyCode == 0 || (keyCode >= kShift && keyCode <= kAlt) || keyCode == kCapsLock) return {};
  const std::string line = ActLine({"tecla", std::to_string(keyCode)});
  if (shift.ctrl) return line + " ctrl";
  return shift.shift ? line + " shift" : line;
}

std::vector<std::string> TypingLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    TypeRun(text.substr(0, end), lines);
    if (end == text.size()) break;
    lines.emplace_back(kBreakKey);
    const bool isPair = text.substr(end).starts_with("\r\n");
    text.remove_prefix(end + (isPair ? 2 : 1));
  }
  return lines;
}

}  // namespace tessera
