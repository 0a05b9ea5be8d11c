#include "commands/system_commands.h"

#include "commands/arguments.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kYesNoWord = "OPCAOSIMNAO";

Value Mensagem(const WordCall& call) {
  const Arguments arguments(call);
  Box box{.text = {}, .title = ProgramTitle(call.run), .icon = BoxIcon::Information};
  for (std::size_t place = 0, count = arguments.List("valor").size(); place < count; ++place) {
    const std::string text = arguments.NumberAt(place).ToText();
    if (Upper(text) == kYesNoWord) {
      box.icon = BoxIcon::Question;
      box.buttons = BoxButtons::YesNo;
      box.defaultAnswer = BoxAnswer::No;
    } else {
      box.text += text;
    }
  }
  const BoxAnswer answer = call.run.host.dialogs.ShowBox(box);
  if (box.buttons != BoxButtons::YesNo) return {};
  return std::string(answer == BoxAnswer::Yes ? "SIM" : "NAO");
}

Value EntraTexto(const WordCall& call) {
  const Arguments arguments(call);
  const std::string prompt = arguments.Text("pergunta");
  const TextInputAnswer answer = call.run.host.dialogs.AskText(
      {.caption = ProgramTitle(call.run), .prompt = prompt, .initial = arguments.Text("proposto")});
  switch (answer.end) {
    case InputEnd::Confirmed:
      return Quote(answer.text);
    case InputEnd::Cancelled:
      return Quote(kCancelledAnswer);
    case InputEnd::ClosedByFrame:
      break;
  }
  // KEPT: the prompt is the answer of a form closed by its frame
  // (QtHostTest.TheInputFormAnswersItsTextTheCancelWordOrThePrompt).
  return Quote(prompt);
}

constexpr PlainRow kRows[] = {
    {"Mensagem", Mensagem},
    {"EntraTexto", EntraTexto},
};

}  // namespace

void BindSystemCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
