#include "commands/dialog_commands.h"

#include <optional>
#include <utility>

#include "commands/arguments.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kNameColumns = 30;
constexpr std::size_t kSizeColumns = 3;
constexpr std::size_t kFlagColumns = 10;

constexpr std::string_view kTrue = "Verdadeiro";
constexpr std::string_view kFalse = "Falso";
constexpr std::string_view kCancelled = "CANCELADO";

std::string Column(std::string_view text, std::size_t width) {
  std::string column(Left(text, width));
  column.resize(width, ' ');
  return column;
}

// The answer and the variable that takes it; nothing for Cancel.
struct Answer {
  std::string_view variable;
  Value value;
};

std::optional<Answer> AskPath(Run& run, const ArgumentView& arguments, bool save) {
  auto path = run.host.dialogs.AskFile({.save = save,
                                        .title = arguments.Number("título").ToText(),
                                        .description = arguments.Number("descrição").ToText(),
                                        .pattern = arguments.Number("filtro").ToText(),
                                        .proposed = arguments.Number("proposto").ToText()});
  if (!path) return std::nullopt;
  return Answer{"Retorno", std::move(*path)};
}

std::optional<Answer> Ask(ChosenPrinter& chosen, Run& run, const ArgumentView& arguments,
                          std::string_view mode) {
  Dialogs& dialogs = run.host.dialogs;
  if (mode == "ABRIR" || mode == "SALVAR") return AskPath(run, arguments, mode == "SALVAR");
  const std::string title = arguments.Number("título").ToText();
  if (mode == "COR") {
    const auto colour = dialogs.AskColour(title);
    if (!colour) return std::nullopt;
    return Answer{"ValorRetorno", *colour};
  }
  if (mode == "FONTE") {
    const auto font = dialogs.AskFont(title);
    if (!font) return std::nullopt;
    return Answer{"Retorno", FontRecord(*font)};
  }
  run.variables.VarWrite("Retorno", std::string(), true);
  auto printer = dialogs.AskPrinter(title);
  if (!printer) return std::nullopt;
  chosen.name = std::move(*printer);
  return Answer{"Retorno", std::string("OK")};
}

Value CaixaDialogo(ChosenPrinter& chosen, const WordCall& call) {
  const Arguments arguments(call);
  const std::string mode = Upper(arguments.Number("modo").ToText());
  const bool isMode =
      mode == "ABRIR" || mode == "SALVAR" || mode == "COR" || mode == "FONTE" || mode == "IMPRESSORA";
  if (!isMode) return {};
  const auto answer = Ask(chosen, call.run, arguments, mode);
  if (answer) {
    call.run.variables.VarWrite(answer->variable, answer->value, true);
  } else {
    call.run.variables.VarWrite("Retorno", std::string(kCancelled), true);
  }
  return {};
}

constexpr RowOn<ChosenPrinter> kRows[] = {{"CaixaDialogo", CaixaDialogo}};

}  // namespace

std::string FontRecord(const ChosenFont& font) {
  const auto flag = [](bool isOn) { return Column(isOn ? kTrue : kFalse, kFlagColumns); };
  return Column(font.name, kNameColumns) + Column(NumberText(font.size), kSizeColumns) + flag(font.bold) +
         flag(font.italic);
}

ChosenFont FontOfRecord(std::string_view record) {
  constexpr Position kSizeAt = kNameColumns + 1;
  constexpr Position kBoldAt = kSizeAt + kSizeColumns;
  constexpr Position kItalicAt = kBoldAt + kFlagColumns;
  const auto isOn = [&](Position at) { return Trim(Mid(record, at, kFlagColumns)) == kTrue; };
  return {.name = std::string(Trim(Left(record, kNameColumns))),
          .size = WholeNumber(Trim(Mid(record, kSizeAt, kSizeColumns))).value_or(0),
          .bold = isOn(kBoldAt),
          .italic = isOn(kItalicAt)};
}

void BindDialogCommands(CommandTable& table, ChosenPrinter& printer) {
  Bind(table, kRows, printer);
}

}  // namespace tessera
