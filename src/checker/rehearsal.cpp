#include "checker/rehearsal.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "checker/reckoning.h"
#include "engine/assignment.h"
#include "engine/engine.h"
#include "language/types.h"
#include "language/words.h"
#include "platform/failure.h"
#include "platform/system_files.h"
#include "text/one_based.h"
#include "values/argument_text.h"
#include "values/eval.h"
#include "values/parens.h"
#include "values/run.h"

namespace tessera::check {

namespace {

constexpr std::size_t kElements = 100;
constexpr std::string_view kNumberTarget = "ENSAIODENUMERO";
constexpr std::string_view kTextTarget = "ENSAIODETEXTO";
constexpr std::string_view kHead = "&#00000\xA7#00000$#00 ";

// A host on which nothing happens, but a box is noticed.
class SilentDialogs final : public Dialogs {
 public:
  BoxAnswer ShowBox(const Box&) override {
    wasShown = true;
    return BoxAnswer::Ok;
  }
  TextInputAnswer AskText(const TextInput&) override { return {InputEnd::Cancelled, {}}; }
  std::optional<std::string> AskFile(const FileRequest&) override { return std::nullopt; }
  std::optional<std::int32_t> AskColour(std::string_view) override { return std::nullopt; }
  std::optional<ChosenFont> AskFont(std::string_view) override { return std::nullopt; }
  std::optional<std::string> AskPrinter(std::string_view) override { return std::nullopt; }

  bool wasShown = false;
};

class NoEvents final : public EventDispatch {
 public:
  void ProcessEvents() override {}
  bool AwaitEvents(std::chrono::milliseconds) override { return false; }
  bool AwaitNextEvents() override { return false; }
  void Pause(std::chrono::milliseconds) override {}
  void Post(std::function<void()>) override {}
  std::chrono::milliseconds DispatchTime() override { return {}; }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds, std::function<void()>) override {
    return nullptr;
  }
};

class NoClock final : public Clock {
 public:
  LocalTime Now() override { return {}; }
};

class NoChance final : public Random {
 public:
  double Next() override { return 0; }
};

// Whether the language's value is the one that was reckoned.
bool IsSame(const Value& value, const Reckoned& reckoned) {
  if (!reckoned.number) return value.ToText() == reckoned.text;
  if (!value.IsNumeric()) return false;
  const double found = value.ToDouble();
  return std::abs(found - *reckoned.number) <= 1e-7 * std::max(1.0, std::abs(*reckoned.number));
}

}  // namespace

class Rehearsal::Stage {
 public:
  explicit Stage(const Names& names)
      : names_(names), run_({dialogs_, events_, clock_, chance_, files_}), engine_(run_) {
    run_.functionTable.Fill(WordNames());
    for (const RoutineRef& function : names.functions()) {
      run_.program.routines.FunctionNames.emplace_back(function.routine->name);
      run_.program.routines.FunctionTypes.emplace_back(function.routine->resultType);
    }
    run_.programFunctions.Fill(run_.program.routines.FunctionNames);
    for (const Variable& variable : names.variables())
      Declare(variable.name, variable.type, variable.isArray || variable.count < 0);
    run_.variables.VarCreateScalar(kNumberTarget, kTypeDecimal);
    run_.variables.VarCreateScalar(kTextTarget, kTypeString);
    run_.doors.CommandCall = [this](std::string_view name, const ArgumentText& arguments) {
      return Call(name, arguments.text, false);
    };
    run_.doors.CallFunction = [this](std::string_view name, const ArgumentText& arguments) {
      return Call(name, arguments.text, true);
    };
  }

  bool Agrees(const Context& context, Tokens tokens, Place place, Type target) {
    const auto reckoned = Reckon(context, tokens);
    if (!reckoned || (target == Type::Number && !reckoned->number)) return true;
    DeclareLocals(context);
    dialogs_.wasShown = false;
    Value value;
    const std::string text(context.source.TextOf(tokens));
    const auto failure =
        Guard([&] { value = place == Place::RightSide ? Assigned(text, target) : EvalNumber(run_, text); });
    return !failure && !dialogs_.wasShown && IsSame(value, *reckoned);
  }

  bool AgreesInList(const Context& context, Tokens list, Place place) {
    DeclareLocals(context);
    return place == Place::RightSide ? AgreesInJoin(context, list) : AgreesInArguments(context, list);
  }

 private:
  bool AgreesInArguments(const Context& context, Tokens list) {
    std::vector<std::string> alone;
    const auto unknown = Guard([&] {
      for (const Tokens argument : SplitAtCommas(list))
        alone.push_back(EvalNumber(run_, context.source.TextOf(argument)).ToText());
    });
    if (unknown) return true;
    std::vector<std::string> listed;
    const auto failure = Guard([&] {
      for (const std::string& part : SplitArguments(run_, context.source.TextOf(list), kPlaces)) {
        if (part.empty()) break;
        listed.push_back(EvalNumber(run_, part).ToText());
      }
    });
    return !failure && listed == alone;
  }

  bool AgreesInJoin(const Context& context, Tokens list) {
    std::string alone;
    const auto unknown = Guard([&] {
      for (const Tokens value : SplitAtCommas(list))
        alone += Assigned(std::string(context.source.TextOf(value)), Type::Text).ToText();
    });
    if (unknown) return true;
    std::string joined;
    const auto failure =
        Guard([&] { joined = Assigned(std::string(context.source.TextOf(list)), Type::Text).ToText(); });
    return !failure && joined == alone;
  }

  static constexpr std::size_t kPlaces = 101;

  void DeclareLocals(const Context& context) {
    if (context.routine == nullptr) return;
    for (const Local& local : context.routine->locals) Declare(local.name, local.type, false);
  }

  void Declare(std::string_view name, std::string_view type, bool isArray) {
    if (run_.variables.VarFind(name) != -1) return;
    const std::string value = std::to_string(ValueOfVariable(name));
    if (!isArray) {
      run_.variables.VarCreateScalar(name, type);
      run_.variables.VarWrite(name, Value(value), false);
      return;
    }
    run_.variables.VarCreateArray(std::string(name) + "(" + std::to_string(kElements) + ")", type);
    for (std::size_t i = 0; i < kElements; ++i)
      run_.variables.VarWrite(std::string(name) + "(" + std::to_string(i) + ")", Value(value), false);
  }

  Value Assigned(const std::string& text, Type target) {
    const std::string_view name = target == Type::Text ? kTextTarget : kNumberTarget;
    const std::string line = std::string(kHead) + std::string(name) + " = " + text;
    AssignStatement(engine_, run_, ReadRightSide(line), name, target != Type::Text);
    return run_.variables.VarRead(name);
  }

  Value Call(std::string_view name, std::string_view arguments, bool isUser) {
    const Word* word = isUser ? nullptr : FindWord(name);
    std::vector<std::string> forms;
    for (const std::string& part : SplitArguments(run_, arguments, kPlaces)) {
      if (part.empty()) break;
      const bool isRaw = word != nullptr && word->arguments.size() > forms.size() &&
                         word->arguments[forms.size()].kind == Kind::AsWritten;
      forms.push_back(ReckonedText(isRaw ? StripParens(part) : EvalNumber(run_, part).ToText()).Form());
    }
    const bool isText = GivesText(names_, name);
    const Reckoned value = ValueOfCall(name, forms, isText);
    if (!isText) return Value(*value.number);
    return isUser ? Value(value.text) : Value(Quote(value.text));
  }

  const Names& names_;
  SilentDialogs dialogs_;
  NoEvents events_;
  NoClock clock_;
  NoChance chance_;
  SystemFiles files_;
  Run run_;
  Engine engine_;
};

Rehearsal::Rehearsal(const Names& names) : names_(names) {}
Rehearsal::~Rehearsal() = default;

bool Rehearsal::Agrees(const Context& context, Tokens tokens, Place place, Type target) {
  if (stage_ == nullptr) stage_ = std::make_unique<Stage>(names_);
  return stage_->Agrees(context, tokens, place, target);
}

bool Rehearsal::AgreesInList(const Context& context, Tokens list, Place place) {
  if (stage_ == nullptr) stage_ = std::make_unique<Stage>(names_);
  return stage_->AgreesInList(context, list, place);
}

namespace {

bool IsCall(const Context& context, Tokens tokens, std::size_t at) {
  if (!tokens[at].IsName() || at + 1 >= tokens.size() || !tokens[at + 1].Is('(')) return false;
  return FindWord(tokens[at].text) != nullptr || context.names.FindFunction(tokens[at].text) != nullptr;
}

// Whether the expression can be taken otherwise at all, and can be rehearsed.
bool IsWorthIt(const Context& context, Tokens tokens) {
  std::size_t parens = 0;
  bool hasCallOrGroup = false;
  std::size_t depth = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.IsRelation() || token.Is('&') || token.Is('@') || token.Is('$') || token.Is('.')) return false;
    if (token.Is('(')) ++parens, ++depth;
    if (token.Is(')')) --depth;
    if (token.Is(',') && depth == 0) return false;
    const bool isElement = i > 0 && tokens[i - 1].IsName() && !IsCall(context, tokens, i - 1);
    if (token.Is('(') && !isElement) hasCallOrGroup = true;
    if (token.Is('(') && isElement && i + 1 < tokens.size() && tokens[i + 1].IsNumber() &&
        IntegerOf(tokens[i + 1]) >= 100)
      return false;
    const Word* word = token.IsName() ? FindWord(token.text) : nullptr;
    if (word != nullptr && word->name == "SQL") return false;
  }
  const bool isOneCall = parens == 1 && IsCall(context, tokens, 0) && tokens.back().Is(')');
  // The numeric functions alone keep the fraction of their result in every place.
  const bool keepsAll = !GivesFraction(tokens[0].text) || IsNumericFunction(tokens[0].text);
  return hasCallOrGroup && !(isOneCall && keepsAll);
}

// The operator behind a parenthesis that goes on inside of it.
const Token& OperatorBehindGroup(Tokens tokens) {
  for (std::size_t i = 1; i + 1 < tokens.size(); ++i) {
    if (tokens[i].Is(')') && tokens[i + 1].IsOperator()) return tokens[i + 1];
  }
  return tokens.front();
}

}  // namespace

void Rehearse(Context& context, Tokens tokens, Place place, Type target) {
  if (context.rehearsal == nullptr || !IsWorthIt(context, tokens)) return;
  if (context.rehearsal->Agrees(context, tokens, place, target)) return;
  bool hasCall = false;
  for (std::size_t i = 0; i < tokens.size(); ++i) hasCall = hasCall || IsCall(context, tokens, i);
  if (hasCall) {
    context.Tell(rule::kLostBehindCall, tokens,
                 "esta expressão não dá o que diz: parte dela se perde em volta da chamada",
                 "guarde antes o resultado de cada função em uma variável, e faça a conta com as variáveis");
    return;
  }
  context.Tell(rule::kBehindParen, OperatorBehindGroup(tokens),
               "esta conta não dá o que diz: o que vem atrás de \")\" ainda conta como dentro do parêntese",
               "faça a conta do parêntese antes, em uma variável; ou ponha o parêntese no começo da conta");
}

void RehearseList(Context& context, Tokens list, Place place) {
  if (context.rehearsal == nullptr) return;
  // Of a command's list the calls are replaced before it is cut only where one takes commas.
  const bool isWhole =
      place == Place::RightSide || HoldsCallOf(trait::kTakesCommas, context.source.TextOf(list));
  if (!isWhole || context.rehearsal->AgreesInList(context, list, place)) return;
  bool hasCall = false;
  for (std::size_t i = 0; i < list.size(); ++i) hasCall = hasCall || IsCall(context, list, i);
  context.Tell(
      rule::kLostBehindCall, list,
      hasCall ? "esta lista não dá o que diz: parte dela se perde em volta de uma chamada"
              : "esta lista não dá o que diz: um texto dela é tomado por uma chamada",
      place == Place::RightSide
          ? "junte os valores com &, e guarde antes o resultado de cada função em uma variável"
          : "guarde antes o resultado de cada função em uma variável, e ponha as variáveis na lista");
}

}  // namespace tessera::check
