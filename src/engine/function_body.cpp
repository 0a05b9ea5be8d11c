#include "engine/function_body.h"

#include <algorithm>
#include <optional>

#include "engine/function_call.h"
#include "engine/routines.h"
#include "engine/statement_loop.h"
#include "language/words.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/calls.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera {

namespace {

constexpr char kPlaceOfNumber = '\x01';
constexpr std::size_t kMostNames = 21;
constexpr std::size_t kLongestName = 50;

bool IsWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsWord(std::string_view text) {
  return !text.empty() && (text.front() < '0' || text.front() > '9') &&
         std::all_of(text.begin(), text.end(), IsWordCharacter);
}

struct Declared {
  std::string_view name;
  VariableType type;
};

// "a Inteiro, b String": nothing for any other list.
std::optional<std::vector<Declared>> ReadList(std::string_view list) {
  std::vector<Declared> names;
  if (Trim(list).empty()) return names;
  for (std::size_t begin = 0; begin <= list.size();) {
    const std::size_t comma = std::min(list.find(',', begin), list.size());
    const std::string_view item = Trim(list.substr(begin, comma - begin));
    const std::size_t blank = item.find(' ');
    if (blank == std::string_view::npos || !IsWord(item.substr(0, blank))) return std::nullopt;
    const std::string_view type = item.substr(blank + 1);
    if (type != kTypeString && type != kTypeInteiro && type != kTypeDecimal) return std::nullopt;
    names.push_back({item.substr(0, blank), type == kTypeString    ? VariableType::String
                                            : type == kTypeInteiro ? VariableType::Inteiro
                                                                   : VariableType::Decimal});
    begin = comma + 1;
  }
  return names;
}

// True if the program spells a name that a call could have: the function's, digits, and a letter.
bool SpellsLocal(std::string_view text, std::string_view function) {
  const std::string upperText = Upper(text);
  const std::string sought = Upper(function);
  for (std::size_t at = upperText.find(sought); at != std::string::npos;
       at = upperText.find(sought, at + 1)) {
    std::size_t end = at + sought.size();
    const std::size_t digits = end;
    while (end < upperText.size() && upperText[end] >= '0' && upperText[end] <= '9') ++end;
    if (end > digits && end < upperText.size() && IsWordCharacter(upperText[end])) return true;
  }
  return false;
}

// Two signs of compound forms in a line: then the line's expression is a text of its own.
bool HoldsDoubleCompound(std::string_view body) {
  std::size_t signs = 0;
  for (std::size_t i = 0; i + 2 < body.size(); ++i) {
    if (body[i] == '\r') signs = 0;
    const bool isSign = (body[i] == '+' || body[i] == '-') && body[i + 1] == ' ' && body[i + 2] == '=';
    if (isSign && ++signs > 1) return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<FunctionBody> FunctionBody::Make(const Run& run, std::string_view name,
                                                 std::string_view found, std::size_t digits) {
  const Position open = Find(found, "(");
  const Position close = Find(found, ")");
  if (open == 0 || close < open || !IsWord(name) || Contains(found, std::string(1, kPlaceOfNumber)))
    return nullptr;
  const auto parameters = ReadList(Mid(found, open + 1, close - open - 1));
  if (!parameters || parameters->size() >= kMostNames) return nullptr;

  std::string body(found);
  body.erase(0, Find(body, kCrLf));
  std::vector<Declared> locals;
  std::string localList;
  if (const auto list = DeclaredLocals(body)) {
    localList = list->text;
    auto read = ReadList(localList);
    if (!read || read->size() >= kMostNames || list->next == 0) return nullptr;
    locals = *std::move(read);
  }

  std::unique_ptr<FunctionBody> made(new FunctionBody(name));
  made->parameters_ = parameters->size();
  std::vector<std::string> taken;
  const auto declare = [&](const Declared& declared) {
    const std::string upper = Upper(declared.name);
    if (std::find(taken.begin(), taken.end(), upper) != taken.end()) return false;
    if (name.size() + digits + upper.size() > kLongestName) return false;
    taken.push_back(upper);
    made->frame_.Add(declared.name, declared.type);
    RenameInBody(body, declared.name,
                 std::string(name) + std::string(digits, kPlaceOfNumber) + std::string(declared.name));
    return true;
  };
  if (!std::all_of(parameters->begin(), parameters->end(), declare)) return nullptr;
  // A parameter may have been renamed in the list of locals, which then declares something else.
  if (const auto list = DeclaredLocals(body)) {
    if (list->text != localList) return nullptr;
    if (!std::all_of(locals.begin(), locals.end(), declare)) return nullptr;
    const auto renamed = DeclaredLocals(body);
    if (!renamed) return nullptr;
    body.erase(0, renamed->next - 1);
  }
  if (HoldsDoubleCompound(body) || SpellsLocal(run.program.ProgramText->text(), name)) return nullptr;

  for (Position at = Find(body, std::string(1, kPlaceOfNumber)); at != 0;
       at = Find(body, std::string(1, kPlaceOfNumber), at + digits)) {
    made->numbers_.push_back(at);
  }
  made->frame_.Number().assign(digits, '0');
  std::replace(body.begin(), body.end(), kPlaceOfNumber, '0');
  made->prepared_ = std::make_shared<PreparedText>(std::move(body));
  made->runnable_ = std::make_unique<const RunnableText>(run, made->prepared_);
  return made;
}

void FunctionBody::SetNumber(std::int32_t call) {
  std::string& digits = frame_.Number();
  std::size_t place = digits.size();
  // From one call to the next it is mostly the last digit that changes.
  for (std::int32_t left = call; left != number_; left /= 10, number_ /= 10) {
    const char digit = static_cast<char>('0' + left % 10);
    digits[--place] = digit;
    for (const Position at : numbers_) prepared_->Overwrite(at + place, digit);
  }
  number_ = call;
}

ReadyFunction& Engine::FunctionBodies::Of(std::string_view name) {
  auto known = functions_.find(name);
  if (known == functions_.end()) {
    known = functions_.try_emplace(std::string(name)).first;
    known->second.name = name;
  }
  return known->second;
}

void Engine::FunctionBodies::Make(const Run& run, Routines& routines, ReadyFunction& function,
                                  std::int32_t call) {
  std::size_t digits = 1;
  for (function.end = 10; function.end <= call; function.end *= 10) ++digits;
  function.body = nullptr;
  Guard([&] {
    const std::string_view found = routines.FindFunction(function.name);
    if (found.empty()) return;
    if (auto body = FunctionBody::Make(run, function.name, found, digits))
      function.body = function.bodies.emplace_back(std::move(body)).get();
  });
}

namespace {

// The arguments of one call: as forms, or as their texts where these change from call to call.
class PassedArguments {
 public:
  PassedArguments(Run& run, const ArgumentText& arguments) : run_(run), answers_(arguments.answers) {
    if (arguments.forms != nullptr && arguments.forms->Cut(run, kMostNames, false)) {
      forms_ = arguments.forms;
      count_ = CountOf(forms_->parts());
    } else if (const auto pieces = PiecesBehindCalls(run, arguments)) {
      forms_ = arguments.forms;
      count_ = *pieces;
      isBehindCalls_ = true;
    } else {
      Split(arguments.text);
    }
  }

  // True if these are so many arguments, and computing them calls no other function of the program.
  bool Are(std::size_t count) const {
    if (!isKnown_ || count_ != count) return false;
    if (forms_ != nullptr) return forms_->IsWithoutFunctions(run_);
    return std::none_of(parts_.begin(), parts_.end(),
                        [&](const std::string& part) { return MayCallFunction(run_, part); });
  }

  // Runs the calls that are replaced before the list is cut. False where other pieces come of it.
  bool Cut() {
    if (!isBehindCalls_) return true;
    const bool isByForms = *forms_->CutBehindCalls(run_, kMostNames, false, answers_, parts_);
    if (!isByForms) forms_ = nullptr;
    return isByForms || CountOf(parts_) == count_;
  }

  // The pieces of a list that has been cut.
  std::vector<std::string> TakeParts() { return std::move(parts_); }

  // Computes an argument and gives it to its parameter.
  void Pass(std::size_t i, const Symbol& parameter) const {
    VariableStore& variables = run_.variables;
    std::int64_t whole = 0;
    if (forms_ == nullptr || IsAnswer(i)) {
      variables.WriteTo(parameter, EvalNumber(run_, parts_[i]));
    } else if (parameter.type != VariableType::Inteiro || !forms_->ReadWhole(run_, i, whole) ||
               !PutWhole(variables.Integers()[static_cast<std::size_t>(parameter.first)], whole)) {
      variables.WriteTo(parameter, forms_->Number(run_, i));
    }
  }

 private:
  static std::optional<std::size_t> PiecesBehindCalls(Run& run, const ArgumentText& arguments) {
    return arguments.forms == nullptr ? std::nullopt
                                      : arguments.forms->PiecesBehindCalls(run, kMostNames, false);
  }

  // An empty argument hides what follows it.
  static std::size_t CountOf(const std::vector<std::string>& parts) {
    const auto end = std::find(parts.begin(), parts.end(), std::string());
    return static_cast<std::size_t>(end - parts.begin());
  }

  // The answer of a call that was run before the list was cut.
  bool IsAnswer(std::size_t i) const { return isBehindCalls_ && forms_->parts()[i].empty(); }

  void Split(std::string_view arguments) {
    const std::string text = StripParens(arguments);
    isKnown_ = !HoldsCallOf(trait::kTakesCommas, text) &&
               !Guard([&] { parts_ = SplitArguments(run_, text, kMostNames); });
    count_ = CountOf(parts_);
  }

  Run& run_;
  std::span<const std::string> answers_;
  ArgumentForms* forms_ = nullptr;
  std::vector<std::string> parts_;
  std::size_t count_ = 0;
  bool isKnown_ = true;
  bool isBehindCalls_ = false;
};

}  // namespace

bool Engine::RunReadyFunction(ReadyFunction& function, const ArgumentText& arguments,
                              std::optional<std::vector<std::string>>& cut) {
  VariableStore& variables = run_.variables;
  // After a failure the names of its call are still there until the counter moves.
  if (run_.plain || failedAt_ == FunctionCallCounter || !variables.SymbolsTellAll()) return false;
  if (function.plainCalls > 0) return false;
  if (FunctionCallCounter >= function.end)
    FunctionBodies::Make(run_, *routines_, function, FunctionCallCounter);
  FunctionBody* const body = function.body;
  if (body == nullptr || body->isRunning) return false;
  const std::size_t count = body->parameters();
  PassedArguments passed(run_, arguments);
  if (!passed.Are(count)) return false;

  VariableStore::Frame& frame = body->frame();
  body->isRunning = true;
  body->SetNumber(FunctionCallCounter);
  try {
    variables.Enter(frame, count);
    if (!passed.Cut()) {
      body->isRunning = false;
      variables.Leave(frame);
      cut = passed.TakeParts();
      return false;
    }
    for (std::size_t i = 0; i < count; ++i) passed.Pass(i, frame[i]);
    variables.Enter(frame, frame.size());
    StatementLoop(*this, run_, body->text()).RunFrom(0);
  } catch (...) {
    body->isRunning = false;
    variables.Abandon(frame);
    throw;
  }
  body->isRunning = false;
  variables.Leave(frame);
  ++FunctionCallCounter;
  return true;
}

}  // namespace tessera
