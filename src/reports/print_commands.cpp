#include "reports/print_commands.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/eval.h"

namespace tessera::reports {

namespace {

constexpr std::string_view kPrefix = "IMP.";
constexpr std::size_t kFontArguments = 100;

}  // namespace

PrintCommands::PrintCommands(CommandTable& table, Run& run, Paper& paper) : run_(run), paper_(paper) {
  constexpr MemberRow<PrintCommands> kRows[] = {{"Imp", &PrintCommands::Imp}};
  Bind(table, kRows, *this);
}

PrintCommands::Words PrintCommands::AllWords() {
  static constexpr Words::Row kWords[] = {
      {"FONTE", &PrintCommands::Fonte},     {"POSICIONE", &PrintCommands::Posicione},
      {"ESCREVA", &PrintCommands::Escreva}, {"DESENHE", &PrintCommands::Desenhe},
      {"FIM", &PrintCommands::Fim},         {"NOVAPAGINA", &PrintCommands::NovaPagina},
  };
  return Words(FindWord("Imp")->more.keywords, {kWords});
}

// OPEN: where there is no printer every one of these words says so, also those that would only move its pen.
Value PrintCommands::Imp(const WordCall& call) {
  const std::string name = Upper(call.name);
  const Words::Bound* word = name.starts_with(kPrefix) ? words_.Find(name.substr(kPrefix.size())) : nullptr;
  if (word == nullptr) return {};
  paper_.Do(call, [&](Paper::Tools& tools) {
    tools.printer.Require();
    const Arguments arguments(call);
    (this->*word->act)(tools, arguments.As(word->form->arguments));
  });
  return {};
}

// KEPT: each use begins with bold and italic off (reports.the_printer_takes_fonts_places_and_texts).
void PrintCommands::Fonte(Paper::Tools& tools, const ArgumentView& arguments) {
  FontFace& font = tools.printer.Font;
  font.bold = font.italic = false;
  const auto list = arguments.List("palavra");
  const std::size_t count = std::min(list.size(), kFontArguments);
  for (std::size_t i = 0; i + 1 < count; i += 2) {
    const std::string word = Upper(EvalText(run_, list[i]).ToText());
    const Value value = EvalText(run_, list[i + 1]);
    const bool isOn = Upper(value.ToText()) == "SIM";
    if (word == "NOME") font.name = value.ToText();
    if (word == "TAMANHO") font.size = value.ToDouble();
    if (word == "NEGRITO") font.bold = isOn;
    if (word == "ITALICO") font.italic = isOn;
  }
}

void PrintCommands::Posicione(Paper::Tools& tools, const ArgumentView& arguments) {
  tools.printer.CurrentY = arguments.Number("linha").ToDouble();
  tools.printer.CurrentX = arguments.Number("coluna").ToDouble();
  PrinterRow_ = Value(tools.printer.CurrentY).ToShort();
  PrinterColumn_ = Value(tools.printer.CurrentX).ToShort();
}

void PrintCommands::Escreva(Paper::Tools& tools, const ArgumentView& arguments) {
  std::string text;
  for (const std::string& argument : arguments.List("valor")) text += EvalNumber(run_, argument).ToText();
  tools.printer.Print(text);
}

void PrintCommands::Desenhe(Paper::Tools& tools, const ArgumentView& arguments) {
  const PictureRef picture = tools.pictures.Load(arguments.Text("arquivo"));
  tools.printer.PaintPicture(picture, {double(PrinterColumn_), double(PrinterRow_)});
}

void PrintCommands::NovaPagina(Paper::Tools& tools, const ArgumentView&) {
  tools.printer.NewPage();
}

void PrintCommands::Fim(Paper::Tools& tools, const ArgumentView&) {
  tools.printer.EndDoc();
}

}  // namespace tessera::reports
