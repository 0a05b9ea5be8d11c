#include "values/calls.h"

#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/argument_text.h"
#include "values/parens.h"

namespace tessera {

namespace {

bool IsNameCharacter(char c) {
  const char lower = Lower(c);
  return (c >= '0' && c <= '9') || (lower >= '_' && lower <= 'z');
}

bool IsQuoted(std::string_view text) {
  return text.starts_with('"') && text.ends_with('"');
}

// The identifier that begins where `word` first stands, and the text between its parentheses.
Call LocateCall(std::string_view text, std::string_view word) {
  const std::string marked = MarkParens(text);
  const Position begin = Find(marked, word);
  Position end = begin;
  while (IsNameCharacter(CharAt(marked, end))) ++end;
  const Position mark = Find(marked, "]", end);
  if (mark == 0) FailArgument();
  const std::string closing = std::string("[") + CharAt(marked, mark - 1);
  const Position close = Find(marked, closing, mark + 1);
  if (close == 0) FailArgument();
  return {
      std::string(Mid(marked, begin, end - begin)), std::string(Mid(marked, mark + 1, close - mark - 1)), {}};
}

// Where a call's argument text ends: the position of its ")".
// OPEN: the argument text is looked for behind the call's own parenthesis; a look from the text's first one
// would find an earlier like text and never come to an end. And the ")" is the call's own, not the first one
// behind the name, so that nested calls give what they say.
Position ClosingParen(std::string_view text, const Call& call, std::string_view argument) {
  const Position open = Find(text, "(", Find(text, call.name));
  return Find(text, argument, open + 1) + argument.size();
}

bool IsWhole(std::string_view text, const Call& call) {
  return Find(text, call.name) == 1 && ClosingParen(text, call, StripParens(call.arguments)) == text.size();
}

}  // namespace

std::optional<Call> FindFunction(const Run& run, std::string_view text) {
  if (text.starts_with("Retorno String")) return std::nullopt;
  text = Trim(text);
  if (IsQuoted(text)) return std::nullopt;
  const auto row = run.functionTable.FirstCalledIn(text);
  if (!row) return std::nullopt;
  return LocateCall(text, run.functionTable.words()[*row]);
}

std::string WithAnswer(std::string_view text, const Call& call, std::string_view answer, bool numericTarget,
                       bool restIsLost) {
  const Position closing = ClosingParen(text, call, StripParens(call.arguments));
  std::string built(Left(text, Find(text, call.name) - 1));
  built += answer;
  if (!IsNumericFunction(call.name)) built += Mid(text, closing + 1, 1);
  if (restIsLost) return built;
  built += Mid(text, closing + 2);
  return numericTarget ? Replace(built, ',', '.') : built;
}

void ApplyFunction(Run& run, std::string& text, const Call& call, bool numericTarget) {
  const std::string answer = run.doors.CommandCall(call.name, call.arguments).ToText();
  // KEPT: behind a call whose argument is empty or a variable the rest of the text is lost
  // (ConsoleOutputs.CallsInExpressions).
  const bool restIsLost =
      !numericTarget && (call.arguments.empty() || run.variables.VarFind(call.arguments) != -1);
  text = WithAnswer(text, call, answer, numericTarget, restIsLost);
}

std::optional<Call> FindUserFunction(const Run& run, std::string_view text) {
  text = Trim(text);
  if (text.starts_with('"')) return std::nullopt;
  const auto row = run.programFunctions.FirstCalledIn(text);
  if (!row) return std::nullopt;
  Call call = LocateCall(text, run.programFunctions.words()[*row]);
  call.resultType = run.program.routines.FunctionTypes[*row];
  return call;
}

std::string WithUserAnswer(std::string_view text, const Call& call, std::string_view answer) {
  std::string built(Left(text, Find(text, call.name) - 1));
  built += answer;
  // KEPT: an empty argument text counts as found at position 1, so that a call with empty parentheses can
  // only stand alone (ConsoleOutputs.CallsInExpressions).
  const std::string argument = StripParens(call.arguments);
  built += Mid(text, argument.empty() ? 3 : ClosingParen(text, call, argument) + 2);
  FinishUserResult(built, call.resultType);
  return built;
}

void ApplyUserFunction(Run& run, std::string& text, const Call& call) {
  text = WithUserAnswer(text, call, run.doors.CallFunction(call.name, call.arguments).ToText());
}

void FinishUserResult(std::string& built, std::string_view resultType) {
  if (resultType == "Numero") {
    const std::size_t comma = built.rfind(',');
    if (comma != std::string::npos) built[comma] = '.';
  }
  if (resultType == "String" && !built.starts_with('"')) built = '"' + built + '"';
}

bool MayCall(const Run& run, std::string_view text) {
  if (!IsQuoted(text) && run.functionTable.FirstCalledIn(text)) return true;
  return MayCallFunction(run, text);
}

bool MayCallFunction(const Run& run, std::string_view text) {
  return !text.starts_with('"') && run.programFunctions.FirstCalledIn(text);
}

std::optional<WholeCall> FindWholeCall(const Run& run, std::string_view text) {
  std::optional<WholeCall> found;
  // A name without its parentheses fails, each time that it is evaluated.
  Guard([&] {
    auto call = FindFunction(run, text);
    if (!call) {
      found = FindWholeFunction(run, text);
    } else if (IsWhole(text, *call)) {
      found = WholeCall{*std::move(call), false};
    }
  });
  return found;
}

std::optional<WholeCall> FindWholeFunction(const Run& run, std::string_view text) {
  std::optional<WholeCall> found;
  Guard([&] {
    auto call = FindUserFunction(run, text);
    if (call && !StripParens(call->arguments).empty() && IsWhole(text, *call))
      found = WholeCall{*std::move(call), true};
  });
  return found;
}

void ReplacementLimit::Count(std::string_view text) {
  constexpr std::size_t kLongestText = std::size_t{16} << 20;
  if (++count_ > most_ || text.size() > kLongestText) FailStack();
}

void ReplaceFunctions(Run& run, std::string& text, bool& numericTarget, int replacedBefore) {
  ReplacementLimit limit(run, replacedBefore);
  while (const auto call = FindFunction(run, text)) {
    run.stack.Check();
    limit.Count(text);
    if (IsNumericFunction(call->name)) numericTarget = true;
    ApplyFunction(run, text, *call, numericTarget);
  }
}

void ReplaceListFunctions(Run& run, std::string& text, bool numericTarget, int replacedBefore) {
  ReplacementLimit limit(run, replacedBefore);
  while (const auto call = FindFunction(run, text)) {
    run.stack.Check();
    limit.Count(text);
    ApplyFunction(run, text, *call, numericTarget);
  }
}

void ReplaceUserFunctions(Run& run, std::string& text, int replacedBefore) {
  ReplacementLimit limit(run, replacedBefore);
  while (const auto call = FindUserFunction(run, text)) {
    limit.Count(text);
    ApplyUserFunction(run, text, *call);
  }
}

}  // namespace tessera
