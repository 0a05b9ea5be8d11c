#include "engine/assignment_form.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/assignment.h"
#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/call_form.h"
#include "values/calls.h"
#include "values/eval.h"

namespace tessera {

namespace {

// The function of the program that a right side consists of. They go first, those in arguments too.
std::optional<WholeCall> FindFirstFunction(const Run& run, std::string_view text) {
  const bool isPlain = Trim(text) == text && text.find_first_of("[]") == std::string_view::npos;
  return isPlain && run.variables.FindNumbers(text) ? FindWholeFunction(run, text) : std::nullopt;
}

}  // namespace

AssignmentForm::AssignmentForm(Run& run, const Line& line) : right_(ReadRightSide(line.text)) {
  if (right_.readsSql) return;
  if (right_.joined.empty()) {
    ReadTerm(run);
  } else {
    ReadJoined(run);
  }
}

void AssignmentForm::ReadTerm(Run& run) {
  if (right_.text.empty()) return;
  if (auto function = FindFirstFunction(run, right_.text)) {
    call_ = std::make_unique<const CallForm>(run, *std::move(function));
    kind_ = Kind::Call;
    return;
  }
  TermForm term(run, right_.text);
  // Functions of the program go first, those in arguments too.
  const auto isFirst = [&](bool isOwn) { return isOwn || !FindUserFunction(run, right_.text); };
  if (term.call() != nullptr) {
    if (!isFirst(false)) return;
    term_ = std::move(term);
    kind_ = Kind::Call;
    return;
  }
  if (term.nested() != nullptr) {
    if (!isFirst(false)) return;
    term_ = std::move(term);
    kind_ = Kind::NestedCall;
    return;
  }
  if (right_.isText) return;
  if (!term.IsWithoutCalls() && run.variables.FindNumbers(right_.text)) {
    inside_ = CallsInArithmetic::Of(run, right_.text);
    if (inside_ && isFirst(inside_->areOwn())) kind_ = Kind::CallInside;
    return;
  }
  if (!term.IsWithoutCalls() || HoldsCallOf(trait::kTakesCommas, right_.text)) return;
  // A comma outside of literals would cut the right side into several parts.
  constexpr std::size_t kPlaces = 11;
  const auto parts = SplitArguments(run, right_.text, kPlaces);
  if (parts[0] != right_.text) return;
  term_ = std::move(term);
  kind_ = Kind::Term;
}

void AssignmentForm::ReadJoined(Run& run) {
  for (const std::string_view text : right_.joined) {
    Part part{text, text.starts_with('"'), {}, {}};
    if (part.isLiteral) {
      part.text = Unquote(text);
    } else {
      const auto name = NameForm::Of(run.variables, text);
      if (!name) return;
      part.name = *name;
      // A name without its parentheses fails, each time that it is read.
      Guard([&] {
        if (!run.variables.FindNumbers(text)) return;
        if (auto call = FindFunction(run, text))
          part.call = std::make_unique<const CallForm>(run, WholeCall{*std::move(call), false});
      });
    }
    parts_.push_back(std::move(part));
  }
  kind_ = Kind::Joined;
}

void AssignmentForm::Assign(Engine& engine, Run& run, const NameForm& target, std::string_view name) const {
  if (kind_ == Kind::Plain || !run.variables.SymbolsTellAll()) {
    AssignStatement(engine, run, right_, name, target.type() != VariableType::String);
    return;
  }
  if (kind_ == Kind::Joined) {
    engine.TextExpressionFlag = right_.isText;
    if (AppendJoined(run, target)) return;
    std::string joined;
    Join(run, joined);
    WriteBy(run.variables, target, name, std::move(joined));
    return;
  }
  if (kind_ == Kind::Call) {
    AssignCall(engine, run, target, name);
    return;
  }
  if (kind_ == Kind::NestedCall) {
    AssignNested(engine, run, target, name);
    return;
  }
  if (kind_ == Kind::CallInside) {
    AssignAround(engine, run, target, name);
    return;
  }
  engine.TextExpressionFlag = false;
  if (AssignTerm(run, target)) return;
  WriteBy(run.variables, target, name, AsWritten(term_.Evaluate(run)));
}

void AssignmentForm::AssignCall(Engine& engine, Run& run, const NameForm& target,
                                std::string_view name) const {
  const CallForm& call = call_ ? *call_ : *term_.call();
  engine.TextExpressionFlag = right_.isText;
  const bool numericTarget = target.type() != VariableType::String || call.isNumericFunction();
  Value answer = call.Run(run);
  std::int64_t whole = 0;
  if (!engine.TextExpressionFlag && run.variables.SymbolsTellAll() && call.SettleWhole(answer, whole)) {
    std::int32_t* integer = target.Integer(run.variables);
    if (integer != nullptr && PutWhole(*integer, whole)) return;
  }
  auto settled = call.Settle(run, answer, numericTarget, true);
  // In text mode a number is no number.
  if (settled && (settled->IsText() || !engine.TextExpressionFlag)) {
    WriteBy(run.variables, target, name, *std::move(settled));
    engine.TextExpressionFlag = false;
    return;
  }
  std::string text = call.TextOf(answer, numericTarget);
  if (call.isOwn()) {
    // Another function of the program may have come to stand in the text.
    AssignFrom(engine, run, std::move(text), name, target.type() != VariableType::String, 1);
  } else {
    AssignReplaced(engine, run, std::move(text), name, numericTarget, 1);
  }
}

void AssignmentForm::AssignNested(Engine& engine, Run& run, const NameForm& target,
                                  std::string_view name) const {
  const CallChain& calls = *term_.nested();
  const bool isNumber = target.type() != VariableType::String;
  if (!calls.Serves(isNumber)) {
    AssignStatement(engine, run, right_, name, isNumber);
    return;
  }
  engine.TextExpressionFlag = right_.isText;
  CallChain::Answers answers;
  if (calls.RunAll(run, isNumber, answers)) {
    auto settled = calls.Settle(run, answers, isNumber, true);
    // In text mode a number is no number.
    if (settled && (settled->IsText() || !engine.TextExpressionFlag)) {
      WriteBy(run.variables, target, name, *std::move(settled));
      engine.TextExpressionFlag = false;
      return;
    }
  }
  ReplacedCalls rest = calls.Written(run, answers, isNumber);
  AssignReplaced(engine, run, std::move(rest.text), name, rest.numericTarget, rest.replaced);
}

void AssignmentForm::AssignAround(Engine& engine, Run& run, const NameForm& target,
                                  std::string_view name) const {
  const bool isNumber = target.type() != VariableType::String;
  if (!inside_->Serves(isNumber)) {
    AssignStatement(engine, run, right_, name, isNumber);
    return;
  }
  engine.TextExpressionFlag = false;
  ReplacedCalls rest;
  if (const auto result = inside_->Evaluate(run, isNumber, engine.TextExpressionFlag, rest)) {
    WriteBy(run.variables, target, name, *ExactDecimal::FromDouble(*result));
    engine.TextExpressionFlag = false;
  } else if (inside_->areOwn()) {
    // Another function of the program may have come to stand in the text.
    AssignFrom(engine, run, std::move(rest.text), name, isNumber, rest.replaced);
  } else {
    AssignReplaced(engine, run, std::move(rest.text), name, rest.numericTarget, rest.replaced);
  }
}

bool AssignmentForm::AssignTerm(Run& run, const NameForm& target) const {
  VariableStore& store = run.variables;
  if (std::int32_t* integer = target.Integer(store)) {
    const Reading reading = term_.Read(run);
    if (reading.kind != Reading::Kind::Whole && reading.kind != Reading::Kind::Float) return false;
    const double rounded = RoundHalfEven(run.roundings.Rounded(reading.number));
    constexpr double kMost = 1e15;
    return std::fabs(rounded) < kMost && PutWhole(*integer, static_cast<std::int64_t>(rounded));
  }
  const Reading reading = term_.Read(run);
  if (double* decimal = target.Decimal(store)) {
    if (reading.kind != Reading::Kind::Whole && reading.kind != Reading::Kind::Float) return false;
    *decimal = run.roundings.Rounded(reading.number);
    return true;
  }
  std::string* text = target.Text(store);
  if (text == nullptr) return false;
  if (reading.kind == Reading::Kind::Text) {
    if (reading.text.size() > VariableStore::kMaxTextLength) return false;
    text->assign(reading.text);
    return true;
  }
  if (reading.kind != Reading::Kind::Whole) return false;
  *text = std::to_string(reading.whole);
  return true;
}

// True for a term whose reading shows nothing and changes nothing.
bool AssignmentForm::IsReady(Run& run, const Part& part) {
  if (part.isLiteral) return true;
  VariableStore& store = run.variables;
  return part.name.Integer(store) != nullptr || part.name.Decimal(store) != nullptr ||
         part.name.Text(store) != nullptr;
}

// `t = t & ...` adds to the text where it stands.
bool AssignmentForm::AppendJoined(Run& run, const NameForm& target) const {
  std::string* text = target.Text(run.variables);
  if (text == nullptr || parts_.front().isLiteral || parts_.front().name.Text(run.variables) != text)
    return false;
  if (!std::all_of(parts_.begin(), parts_.end(), [&](const Part& part) { return IsReady(run, part); }))
    return false;
  const std::size_t before = text->size();
  for (std::size_t i = 1; i < parts_.size(); ++i) {
    const Part& part = parts_[i];
    // The variable itself stands for what it held before.
    if (part.isLiteral) {
      text->append(part.text);
    } else if (const std::string* other = part.name.Text(run.variables)) {
      text->append(*other, 0, other == text ? before : std::string::npos);
    } else {
      text->append(ReadyText(run, part));
    }
    if (text->size() > VariableStore::kMaxTextLength) {
      text->resize(before);
      return false;
    }
  }
  return true;
}

std::string AssignmentForm::ReadyText(Run& run, const Part& part) {
  if (const std::int32_t* integer = part.name.Integer(run.variables)) return NumberText(*integer);
  return NumberText(*part.name.Decimal(run.variables));
}

void AssignmentForm::Join(Run& run, std::string& joined) const {
  for (const Part& part : parts_) {
    if (part.isLiteral) {
      joined.append(part.text);
    } else if (const std::string* text = part.name.Text(run.variables)) {
      joined.append(*text);
    } else if (IsReady(run, part)) {
      joined.append(ReadyText(run, part));
    } else if (part.call && run.variables.VarFind(part.text) == -1) {
      joined.append(Unquote(part.call->Run(run).ToText()));
    } else {
      joined.append(JoinedTerm(run, part.text));
    }
  }
}

}  // namespace tessera
