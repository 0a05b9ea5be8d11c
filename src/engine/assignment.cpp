#include "engine/assignment.h"

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/eval.h"

namespace tessera {

namespace {

// `SQL(base.tabela.campo)`: the field that the right side names.
std::optional<Value> ReadSqlField(Run& run, std::string_view right) {
  constexpr std::size_t kPlaces = 11;
  constexpr Position kNameColumn = 5;
  const std::string first = SplitArguments(run, right, kPlaces).front();
  const Position close = Find(first, ")");
  if (close == 0) FailArgument();
  const std::string name = Upper(Trim(Mid(first, kNameColumn, close - kNameColumn)));
  const std::size_t firstPoint = name.find('.');
  const std::size_t secondPoint =
      firstPoint == std::string::npos ? firstPoint : name.find('.', firstPoint + 1);
  if (secondPoint == std::string::npos) FailArgument();
  const std::string_view view = name;
  return run.doors.SqlReadField(view.substr(0, firstPoint),
                                view.substr(firstPoint + 1, secondPoint - firstPoint - 1),
                                view.substr(secondPoint + 1));
}

// The values of all parts of a right side without " & ", one behind the other.
Value JoinParts(const Engine& engine, Run& run, std::string_view text, bool numericTarget) {
  constexpr std::size_t kPlaces = 11;
  const auto evaluate = [&](const std::string& part) {
    return engine.TextExpressionFlag ? EvalText(run, part, numericTarget)
                                     : EvalNumber(run, part, numericTarget);
  };
  const auto parts = SplitArguments(run, text, kPlaces, false, numericTarget);
  if (!parts[0].empty() && parts[1].empty()) return AsWritten(evaluate(parts[0]));
  std::string joined;
  for (std::size_t i = 0; i < parts.size() && !parts[i].empty(); ++i) joined += evaluate(parts[i]).ToText();
  return joined;
}

}  // namespace

// FAST: spares the way through the text where a text would be written and read again.
Value AsWritten(Value value) {
  if (const double* number = value.AsDouble()) return RoundTo15Digits(*number);
  if (value.IsEmpty()) return std::string();
  return value;
}

std::string JoinedTerm(Run& run, std::string_view term) {
  if (term.starts_with('"')) return std::string(Unquote(term));
  if (run.variables.VarFind(term) != -1) return run.variables.VarRead(term).ToText();
  if (const auto call = FindFunction(run, term)) {
    return std::string(Unquote(run.doors.CommandCall(call->name, call->arguments).ToText()));
  }
  return {};
}

void AssignStatement(Engine& engine, Run& run, const RightSide& right, std::string_view name,
                     bool numericTarget) {
  engine.TextExpressionFlag = right.isText;
  if (right.readsSql) {
    if (auto value = ReadSqlField(run, right.text)) run.variables.VarWrite(name, *std::move(value), true);
    return;
  }
  if (!right.joined.empty()) {
    std::string joined;
    for (const std::string_view term : right.joined) joined += JoinedTerm(run, term);
    run.variables.VarWrite(name, std::move(joined), true);
    return;
  }
  AssignFrom(engine, run, std::string(right.text), name, numericTarget);
}

void AssignFrom(Engine& engine, Run& run, std::string text, std::string_view name, bool numericTarget,
                int replacedBefore) {
  ReplacementLimit limit(run, replacedBefore);
  while (const auto call = FindUserFunction(run, text)) {
    limit.Count(text);
    if (text.ends_with(call->name + "()")) {
      run.variables.VarWrite(name, run.doors.CallFunction(call->name, ""), true);
      return;
    }
    ApplyUserFunction(run, text, *call);
  }
  AssignReplaced(engine, run, std::move(text), name, numericTarget);
}

void AssignReplaced(Engine& engine, Run& run, std::string text, std::string_view name, bool numericTarget,
                    int replacedBefore) {
  ReplaceFunctions(run, text, numericTarget, replacedBefore);
  run.variables.VarWrite(name, JoinParts(engine, run, text, numericTarget), true);
  engine.TextExpressionFlag = false;
}

}  // namespace tessera
