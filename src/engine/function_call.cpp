#include "engine/function_call.h"

#include <array>
#include <vector>

#include "engine/engine.h"
#include "engine/function_body.h"
#include "engine/routines.h"
#include "engine/statement_loop.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

constexpr std::size_t kNames = 21;                 // places for parameters, and for locals
constexpr std::size_t kFirstStatementColumn = 21;  // of a body that begins at the LF in front of a head

struct Names {
  std::string written;
  std::string local;
};

struct PlainCall {
  explicit PlainCall(ReadyFunction& called) : function(called) { ++function.plainCalls; }
  PlainCall(const PlainCall&) = delete;
  PlainCall& operator=(const PlainCall&) = delete;
  ~PlainCall() { --function.plainCalls; }

  ReadyFunction& function;
};

// The names that one call of a function declares. The counter is read at each, for a call among the arguments
// moves it.
class LocalNames {
 public:
  LocalNames(Run& run, std::string_view function, const std::int32_t& counter)
      : run_(run), function_(function), counter_(counter) {}

  // One "name type" of a parameter list or of the locals' declaration.
  Names Declare(std::string_view part) {
    const std::size_t blank = part.find(' ');
    if (blank == std::string_view::npos) FailArgument();
    Names names{std::string(part.substr(0, blank)), {}};
    names.local = std::string(function_) + std::to_string(counter_) + names.written;
    run_.variables.VarCreateScalar(names.local, part.substr(blank + 1));
    declared_.push_back(names.local);
    return names;
  }

  // OPEN: names that an inner call of the same function removed already are passed over without a box.
  void Remove() {
    for (const std::string& name : declared_) run_.variables.VarRemove(name, true);
  }

 private:
  Run& run_;
  std::string_view function_;
  const std::int32_t& counter_;
  std::vector<std::string> declared_;
};

// The names that a function's list declares, at most `kNames`.
std::vector<Names> DeclareParameters(Run& run, std::string_view body, LocalNames& locals) {
  const Position open = Find(body, "(");
  const Position close = Find(body, ")");
  if (open == 0 || close < open) FailArgument();
  std::vector<Names> parameters;
  for (const std::string& part : SplitArguments(run, Mid(body, open + 1, close - open - 1), kNames)) {
    if (part.empty()) break;
    parameters.push_back(locals.Declare(part));
  }
  return parameters;
}

// A parameter without an argument keeps its default value, and its name stays in the body, which then sees
// a global of that name.
void PassArguments(Run& run, std::string& body, const std::vector<std::string>& parts,
                   const std::vector<Names>& parameters) {
  for (std::size_t k = 0; k < parts.size() && !parts[k].empty(); ++k) {
    const Names names = k < parameters.size() ? parameters[k] : Names{};
    RenameInBody(body, names.written, names.local);
    run.variables.VarWrite(names.local, EvalNumber(run, parts[k]), true);
  }
}

// Only the first statement of a function declares locals; a later `Var` declares globals.
void DeclareLocals(Run& run, std::string& body, LocalNames& locals) {
  const auto declared = DeclaredLocals(body);
  if (!declared) return;
  const std::string list(declared->text);
  for (const std::string& part : SplitArguments(run, list, kNames)) {
    if (part.empty()) break;
    const Names names = locals.Declare(part);
    RenameInBody(body, names.written, names.local);
  }
  // Looked for again, since the renaming moves it; and a local called "Var" renames the word itself.
  const Position next = Find(body, "&#", Find(body, kCrLf, kFirstStatementColumn));
  if (next == 0) FailArgument();
  body.erase(0, next - 1);
}

}  // namespace

// OPEN: the declaring word has to end in a blank, so that a first statement such as `Variante = 1` is no
// declaration.
std::optional<LocalsList> DeclaredLocals(std::string_view body) {
  for (const std::string_view word : {"Variavel ", "Var "}) {
    if (Mid(body, kFirstStatementColumn, word.size()) != word) continue;
    const Position list = kFirstStatementColumn + word.size();
    const Position lineEnd = Find(body, kCrLf, kFirstStatementColumn);
    return LocalsList{Mid(body, list, lineEnd - list), Find(body, "&#", lineEnd)};
  }
  return std::nullopt;
}

void RenameInBody(std::string& body, std::string_view oldName, std::string_view newName) {
  if (oldName.empty()) return;
  constexpr std::string_view kBefore = "( \r";
  constexpr std::string_view kBehind = ",) \r";
  std::string out;
  std::size_t copied = 0;
  for (std::size_t at = body.find(oldName); at != std::string::npos;
       at = body.find(oldName, at + oldName.size())) {
    const char before = at == 0 ? '\0' : body[at - 1];
    const std::size_t end = at + oldName.size();
    const char behind = end < body.size() ? body[end] : '\0';
    if (kBefore.find(before) == std::string_view::npos || kBehind.find(behind) == std::string_view::npos)
      continue;
    out.append(body, copied, at - copied).append(newName);
    copied = end;
  }
  if (copied == 0) return;
  body = out.append(body, copied);
}

// KEPT: the counter moves at the normal end alone, so that a function that calls itself shares its names with
// its caller (programs/recursion_shares_its_names).
void Engine::RunFunction(std::string_view name, const ArgumentText& arguments) {
  run_.stack.Check();
  ReadyFunction* function = arguments.forms != nullptr ? arguments.forms->function : nullptr;
  if (function == nullptr) function = &bodies_->Of(name);
  if (arguments.forms != nullptr) arguments.forms->function = function;
  std::optional<std::vector<std::string>> cut;
  if (RunReadyFunction(*function, arguments, cut)) return;
  const PlainCall running(*function);
  const std::string_view found = routines_->FindFunction(name);
  if (found.empty()) {
    ShowCritical(run_, std::string("Função não encontrada: "_w).append(name));
    FailArgument();
  }
  std::string body(found);
  LocalNames locals(run_, name, FunctionCallCounter);
  const std::vector<Names> parameters = DeclareParameters(run_, body, locals);
  // The first line goes, up to the LF of its end.
  body.erase(0, Find(body, kCrLf));
  PassArguments(run_, body, cut ? *cut : SplitArguments(run_, arguments.text, kNames), parameters);
  DeclareLocals(run_, body, locals);
  const RunnableText once(run_, std::make_shared<const PreparedText>(std::move(body)), true);
  StatementLoop(*this, run_, once).RunFrom(0);
  locals.Remove();
  ++FunctionCallCounter;
}

}  // namespace tessera
