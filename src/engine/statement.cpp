#include "engine/statement.h"

#include "engine/assignment.h"
#include "text/literal.h"
#include "values/eval.h"

namespace tessera {

namespace {

void RefuseWord(Run& run, std::string_view word) {
  const std::string text =
      SourcePositionText(run).append("\r").append("Erro: variável não declarada: "_w).append(word);
  const BoxAnswer answer = run.host.dialogs.ShowBox(
      {.text = text, .title = ProgramTitle(run), .icon = BoxIcon::Critical, .buttons = BoxButtons::OkCancel});
  if (answer == BoxAnswer::Cancel) run.StopFlag = true;
}

}  // namespace

void ExecuteStatement(Engine& engine, Run& run, const Line& line) {
  const Opening& opening = line.opening;
  if (opening.declares) {
    VarDeclare(run, line.text, opening.word);
  } else if (opening.callsSub) {
    engine.CallSub(opening.word);
  } else if (opening.returns) {
    engine.ReturnValue = EvalNumber(run, opening.rest);
  } else if (run.variables.VarFind(opening.word) != -1) {
    if (!opening.right) opening.right = ReadRightSide(line.text);
    AssignStatement(engine, run, *opening.right, opening.word, run.variables.LastVarType() != kTypeString);
  } else if (opening.mayDispatch) {
    run.doors.CommandCall(opening.word, opening.rest);
  } else {
    RefuseWord(run, opening.word);
  }
}

}  // namespace tessera
