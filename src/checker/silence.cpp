#include "checker/silence.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera::check {

namespace {

constexpr std::string_view kOpening = "TESSERA: PERMITE ";
constexpr std::string_view kProgram = "NO PROGRAMA ";

// The codes of a comment, in upper case; `isProgram` where they hold everywhere.
std::set<std::string> CodesOf(std::string_view comment, bool& isProgram) {
  std::set<std::string> codes;
  std::string text = Upper(Trim(comment.substr(1)));
  if (!text.starts_with(kOpening)) return codes;
  text.erase(0, kOpening.size());
  isProgram = text.starts_with(kProgram);
  if (isProgram) text.erase(0, kProgram.size());
  for (std::size_t at = text.find('T'); at != std::string::npos; at = text.find('T', at + 1)) {
    const std::string code = text.substr(at, 5);
    const bool isCode = code.size() == 5 && std::all_of(code.begin() + 1, code.end(),
                                                        [](char c) { return c >= '0' && c <= '9'; });
    if (isCode) codes.insert(code);
  }
  return codes;
}

}  // namespace

void Silence::Read(const Source& source) {
  const auto& pieces = source.scan().pieces;
  for (const Piece& piece : pieces) {
    if (piece.kind != PieceKind::Comment) continue;
    bool isProgram = false;
    std::set<std::string> codes = CodesOf(source.text().substr(piece.begin, piece.size), isProgram);
    if (codes.empty()) continue;
    if (isProgram) {
      everywhere_.merge(codes);
      continue;
    }
    std::size_t line = source.SpanOf(piece.begin, 1).line;
    const auto& statements = source.statements();
    const auto first = std::lower_bound(
        statements.begin(), statements.end(), line,
        [](const Statement& statement, std::size_t sought) { return statement.line < sought; });
    if (first != statements.end()) line = first->line;
    lines_[{source.editor(), line}].merge(codes);
  }
}

bool Silence::Allows(const Finding& finding) const {
  const std::string code(finding.rule->code);
  if (everywhere_.contains(code)) return true;
  const auto line = lines_.find({finding.span.editor, finding.span.line});
  return line != lines_.end() && line->second.contains(code);
}

}  // namespace tessera::check
