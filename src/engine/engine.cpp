#include "engine/engine.h"

#include "engine/function_body.h"
#include "engine/routines.h"
#include "engine/statement_loop.h"
#include "platform/failure.h"
#include "text/literal.h"

namespace tessera {

namespace {

constexpr std::string_view kInSub = "falha na rotina";
constexpr std::string_view kInFunction = "falha na função";

}  // namespace

Engine::Engine(Run& run)
    : run_(run), routines_(std::make_unique<Routines>(run)), bodies_(std::make_unique<FunctionBodies>()) {
  run_.doors.CallFunction = [this](std::string_view name, const ArgumentText& arguments) {
    return CallFunction(name, arguments);
  };
}

Engine::~Engine() = default;

// OPEN: counted, and not left to the stack alone, so that a recursion without end fails at the same place on
// every machine and by every form.
Engine::Level::Level(Engine& engine) : engine_(engine) {
  if (engine.levels_ >= engine.mostLevels) FailStack();
  ++engine.levels_;
}

void Engine::RunStatements(const std::shared_ptr<const PreparedText>& text, std::int32_t startStatement) {
  const RunnableText runnable(run_, text);
  StatementLoop(*this, run_, runnable).RunFrom(startStatement);
}

template <typename Body>
void Engine::GuardSub(Body&& body) {
  if (const auto failure = Guard(body)) TellHidden(kInSub, *failure);
}

const RunnableText* Engine::CallSub(std::string_view name) {
  const RunnableText* body = nullptr;
  GuardSub([&] {
    body = routines_->Sub(name);
    if (body == nullptr) {
      ShowCritical(run_, std::string("Sub-rotina não encontrada: "_w).append(name));
      FailArgument();
    }
    StatementLoop(*this, run_, *body).RunFrom(0);
  });
  return body;
}

void Engine::RunSub(const RunnableText& body) {
  GuardSub([&] { StatementLoop(*this, run_, body).RunFrom(0); });
}

Value Engine::CallFunction(std::string_view name, const ArgumentText& arguments) {
  ++functionsInProgress_;
  const auto failure = Guard([&] { RunFunction(name, arguments); });
  --functionsInProgress_;
  if (!failure) return ReturnValue;
  TellHidden(kInFunction, *failure);
  failedAt_ = FunctionCallCounter;
  const std::string text = SourcePositionText(run_).append("\r").append(
      "Erro ao executar a função, certifique-se de ter definido os tipos de argumentos e o tipo de retorno da função!"_w);
  const BoxAnswer answer = run_.host.dialogs.ShowBox({.text = text,
                                                      .title = ProgramTitle(run_),
                                                      .icon = BoxIcon::Critical,
                                                      .buttons = BoxButtons::OkCancel});
  if (answer == BoxAnswer::Cancel) run_.StopFlag = true;
  return {};
}

void Engine::OnTickTimer() {
  ++TimerTick_;
  for (std::size_t i = 0; i < run_.program.routines.TimerNames.size(); ++i) {
    const std::int16_t interval = run_.program.routines.TimerIntervals[i];
    if (interval > 0 && TimerTick_ % interval == 0) CallSub(run_.program.routines.TimerNames[i]);
  }
}

}  // namespace tessera
