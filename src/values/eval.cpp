#include "values/eval.h"

#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/arithmetic.h"
#include "values/calls.h"
#include "values/parens.h"

namespace tessera {

namespace {

bool OpensName(char c) {
  const char lower = Lower(c);
  return lower >= 'a' && lower <= 'z';
}

bool ContinuesName(char c) {
  const char lower = Lower(c);
  return (c >= '0' && c <= '9') || (lower >= '_' && lower <= 'z') || c == '.';
}

// The text with its names replaced by their values, and how many pieces it was made of.
struct Substituted {
  std::string text;
  int pieces = 0;
};

Substituted SubstituteVariables(Run& run, std::string_view text) {
  Substituted out;
  for (std::size_t i = 0; i < text.size(); ++out.pieces) {
    const std::size_t end = EndOfName(text, i);
    if (end == i) {
      out.text.push_back(text[i++]);
      continue;
    }
    out.text += run.variables.VarRead(text.substr(i, end - i)).ToText();
    i = end;
  }
  return out;
}

// Collects the pieces of an argument list into its places.
class Pieces {
 public:
  explicit Pieces(std::size_t places) : parts_(places) {}

  void Append(std::string_view text) { piece_.append(text); }
  void Append(char c) { piece_.push_back(c); }
  void End() {
    Place(Trim(piece_));
    piece_.clear();
  }
  void Place(std::string_view part) {
    if (next_ == parts_.size()) FailSubscript();
    parts_[next_++] = part;
  }
  std::vector<std::string> Take() { return std::move(parts_); }

 private:
  std::vector<std::string> parts_;
  std::size_t next_ = 0;
  std::string piece_;
};

}  // namespace

bool IsArithmeticText(std::string_view text) {
  if (text.find_first_of("/*-+^%") == std::string_view::npos) return false;
  return !text.starts_with('"') && !Trim(Unquote(text)).empty();
}

std::size_t EndOfName(std::string_view text, std::size_t begin) {
  if (!OpensName(text[begin])) return begin;
  std::size_t end = begin + 1;
  while (end < text.size() && ContinuesName(text[end])) ++end;
  if (end == text.size() || text[end] != '(') return end;
  const std::size_t close = text.find(')', end);
  return close == std::string_view::npos ? text.size() : close + 1;
}

std::string_view Unquote(std::string_view text) {
  const Position start = text.starts_with("\"(") ? 3 : text.starts_with('"') ? 2 : 1;
  const Position end = text.ends_with(")\"") ? text.size() - 1
                       : text.ends_with('"') ? text.size()
                                             : text.size() + 1;
  return end <= start ? std::string_view{} : Mid(text, start, end - start);
}

std::string Quote(std::string_view text) {
  std::string quoted(text.size() + 2, '"');
  std::copy(text.begin(), text.end(), quoted.begin() + 1);
  return quoted;
}

Value EvalNumber(Run& run, std::string_view source, bool& numericTarget) {
  run.stack.Check();
  std::string text(StripParens(source));
  text = Trim(std::string_view(text));
  ReplaceFunctions(run, text, numericTarget);
  ReplaceUserFunctions(run, text);
  return EvalReplaced(run, text);
}

Value EvalReplaced(Run& run, std::string_view text) {
  // KEPT: a decimal comma makes the text numeric, and the conversion stops in front of it
  // (programs/numbers.tsc).
  if (IsNumeric(text)) return LeadingNumber(text);
  if (IsArithmeticText(text)) {
    Substituted substituted = SubstituteVariables(run, text);
    if (substituted.pieces == 1) return std::move(substituted.text);
    return ArithmeticEval(substituted.text, run.stack);
  }
  if (run.variables.VarFind(text) != -1) return run.variables.VarRead(text);
  return Unquote(text);
}

Value EvalNumber(Run& run, std::string_view text) {
  bool numericTarget = false;
  return EvalNumber(run, text, numericTarget);
}

Value EvalText(Run& run, std::string_view source, bool& numericTarget) {
  run.stack.Check();
  std::string text(source);
  ReplaceFunctions(run, text, numericTarget);
  ReplaceUserFunctions(run, text);
  if (run.variables.VarFind(text) == -1) return Unquote(text);
  return run.variables.VarRead(text);
}

Value EvalText(Run& run, std::string_view text) {
  bool numericTarget = false;
  return EvalText(run, text, numericTarget);
}

std::vector<std::string> SplitArguments(Run& run, std::string_view source, std::size_t places,
                                        bool splitAtEqual, bool numericTarget) {
  std::string text(Trim(StripParens(source)));
  // Calls that take commas must be gone before the list is cut, since the cut looks at no parentheses.
  if (HoldsCallOf(trait::kTakesCommas, text)) ReplaceListFunctions(run, text, numericTarget);
  return CutList(text, places, splitAtEqual);
}

std::vector<std::string> CutList(std::string_view text, std::size_t places, bool splitAtEqual) {
  Pieces pieces(places);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      const std::size_t close = text.find('"', i + 1);
      const std::size_t end = close == std::string::npos ? text.size() : close + 1;
      pieces.Append(text.substr(i, end - i));
      i = end;
      if (i == text.size()) break;
    }
    // The character behind a literal is taken as it is, so that a second quote opens no literal.
    if (text[i] == ',') {
      pieces.End();
    } else if (splitAtEqual && text[i] == '=') {
      pieces.End();
      pieces.Place("=");
    } else {
      pieces.Append(text[i]);
    }
  }
  pieces.End();
  return pieces.Take();
}

std::vector<std::string> SplitArguments(Run& run, std::string_view text, std::size_t places) {
  return SplitArguments(run, text, places, false, false);
}

void VarDeclare(Run& run, std::string_view line, std::string_view keyword) {
  constexpr std::size_t kDeclarations = 101;
  constexpr std::size_t kListColumn = 21;
  for (const std::string& item :
       SplitArguments(run, Mid(line, kListColumn + keyword.size()), kDeclarations)) {
    if (item.empty()) break;
    const std::size_t blank = item.find(' ');
    const std::string_view name = std::string_view(item).substr(0, blank);
    const std::string_view type =
        blank == std::string::npos ? kTypeString : std::string_view(item).substr(blank + 1);
    if (name.ends_with(')')) {
      run.variables.VarCreateArray(name, type);
    } else {
      run.variables.VarCreateScalar(name, type);
    }
  }
}

}  // namespace tessera
