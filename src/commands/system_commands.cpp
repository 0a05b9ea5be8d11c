#include "commands/system_commands.h"

#include "text/one_based.h"
#include "values/eval.h"

namespace tessera {

namespace {

constexpr std::size_t kMensagemPlaces = 101;
constexpr std::size_t kEntraTextoPlaces = 3;

constexpr std::string_view kYesNoWord = "OPCAOSIMNAO";
constexpr std::string_view kCancelled = "CANCELADO";

Value Mensagem(Run& run, std::string_view arguments) {
  Box box{.text = {}, .title = ProgramTitle(run), .icon = BoxIcon::Information};
  for (const std::string& argument : SplitArguments(run, arguments, kMensagemPlaces)) {
    if (argument.empty()) break;
    const std::string text = EvalNumber(run, argument).ToText();
    if (Upper(text) == kYesNoWord) {
      box.icon = BoxIcon::Question;
      box.buttons = BoxButtons::YesNo;
      box.defaultAnswer = BoxAnswer::No;
    } else {
      box.text += text;
    }
  }
  const BoxAnswer answer = run.host.dialogs.ShowBox(box);
  if (box.buttons != BoxButtons::YesNo) return {};
  return std::string(answer == BoxAnswer::Yes ? "SIM" : "NAO");
}

Value EntraTexto(Run& run, std::string_view arguments) {
  const auto parts = SplitArguments(run, arguments, kEntraTextoPlaces);
  const std::string prompt = EvalText(run, parts[0]).ToText();
  const TextInputAnswer answer = run.host.dialogs.AskText(
      {.caption = ProgramTitle(run), .prompt = prompt, .initial = EvalText(run, parts[1]).ToText()});
  switch (answer.end) {
    case InputEnd::Confirmed:
      return Quote(answer.text);
    case InputEnd::Cancelled:
      return Quote(kCancelled);
    case InputEnd::ClosedByFrame:
      break;
  }
  // KEPT: the prompt is the answer of a form closed by its frame
  // (QtHostTest.TheInputFormAnswersItsTextTheCancelWordOrThePrompt).
  return Quote(prompt);
}

constexpr CommandRow kRows[] = {
    {"MENSAGEM", Mensagem},
    {"ENTRATEXTO", EntraTexto},
};

}  // namespace

void AddSystemCommands(CommandTable& table, Run& run) {
  AddRows(table, run, kRows);
}

}  // namespace tessera
