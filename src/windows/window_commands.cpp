#include "windows/window_commands.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "commands/arguments.h"
#include "commands/form_table.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

// OPEN: the cursor's integers stop at the ends of their 16 bits, so that a program that prints thousands of
// lines goes on, its last ones out of sight below the window.
std::int16_t CursorInteger(double pixels) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::trunc(std::clamp(pixels, double(Limits::min()), double(Limits::max()))));
}

Value Escreva(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  const auto [text, isTitle] =
      LineOf(call.run, arguments.List("valor"), [&](std::size_t place) { return arguments.NumberAt(place); });
  Form& form = windows.CurrentForm();
  if (isTitle) {
    form.SetCaption(text);
  } else {
    form.Print(text);
  }
  form.CurrentX = windows.PrintColumnPixels;
  form.CurrentY = windows.PrintLinePixels + (isTitle ? 0 : windows.TamLin);
  windows.PrintColumnPixels = CursorInteger(form.CurrentX);
  windows.PrintLinePixels = CursorInteger(form.CurrentY);
  windows.OnYield();
  call.run.host.events.ProcessEvents();
  return {};
}

Value Posicione(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  Form& form = windows.CurrentForm();
  form.CurrentY = arguments.Number("linha").ToDouble() * windows.TamLin;
  form.CurrentX = arguments.Number("coluna").ToDouble() * windows.TamCol;
  windows.PrintLinePixels = CursorInteger(form.CurrentY);
  windows.PrintColumnPixels = CursorInteger(form.CurrentX);
  return {};
}

// OPEN: clearing leaves the print position where it is, on the window as in the cursor's integers, so that
// the next line stands where it would have stood.
Value Cls(WindowModel& windows, const WordCall&) {
  windows.CurrentForm().Cls();
  return {};
}

bool IsOn(const ArgumentView& arguments) {
  return arguments.Word("valor") != "NAO";
}

using FontTable = FormTable<void (*)(Form& form, const ArgumentView& arguments)>;

constexpr FontTable::Row kFontWords[] = {
    {"Nome", [](Form& form, const ArgumentView& arguments) { form.Font.name = arguments.Text("valor"); }},
    {"Tamanho", [](Form& form,
                   const ArgumentView& arguments) { form.Font.size = arguments.Number("valor").ToDouble(); }},
    {"Cor", [](Form& form,
               const ArgumentView& arguments) { form.ForeColor = arguments.Number("valor").ToInteger(); }},
    {"Negrito", [](Form& form, const ArgumentView& arguments) { form.Font.bold = IsOn(arguments); }},
    {"Italico", [](Form& form, const ArgumentView& arguments) { form.Font.italic = IsOn(arguments); }},
};

Value Fonte(WindowModel& windows, const FontTable& words, const WordCall& call) {
  const Arguments arguments(call);
  std::string property = arguments.Raw("propriedade");
  if (!Contains(property, ".")) property = "PAI." + property;
  Form* form = windows.FindWindow(Left(property, Find(property, ".") - 1));
  if (form == nullptr) return {};
  for (const FontTable::Bound& word : words) {
    if (Contains(property, word.form->word)) word.act(*form, arguments);
  }
  return {};
}

// The current window's size in lines or columns of the grid.
Value GridCount(double scale, std::int16_t pixels) {
  if (pixels == 0) FailDivision();
  return RoundToInteger(scale / pixels + 0.5);
}

Value AlturaJanela(WindowModel& windows, const WordCall&) {
  return GridCount(windows.CurrentForm().ScaleHeight(), windows.TamLin);
}

Value LarguraJanela(WindowModel& windows, const WordCall&) {
  return GridCount(windows.CurrentForm().ScaleWidth(), windows.TamCol);
}

constexpr RowOn<WindowModel> kRows[] = {
    {"Escreva", Escreva}, {"Posicione", Posicione},       {"Cls", Cls},
    {"LimpaJanela", Cls}, {"AlturaJanela", AlturaJanela}, {"LarguraJanela", LarguraJanela},
};

}  // namespace

void BindWindowCommands(CommandTable& table, WindowModel& windows) {
  Bind(table, kRows, windows);
  table.Add("Fonte", [&windows, words = FontTable(FindWord("Fonte")->more.keywords, {kFontWords})](
                         const WordCall& call) { return Fonte(windows, words, call); });
}

}  // namespace tessera
