#include "windows/window_commands.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/window_command_row.h"

namespace tessera {

namespace {

constexpr std::size_t kEscrevaPlaces = 101;
constexpr std::size_t kPosicionePlaces = 3;
constexpr std::size_t kFontePlaces = 11;

// OPEN: the cursor's integers stop at the ends of their 16 bits, so that a program that prints thousands of
// lines goes on, its last ones out of sight below the window.
std::int16_t CursorInteger(double pixels) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::trunc(std::clamp(pixels, double(Limits::min()), double(Limits::max()))));
}

Value Escreva(Run& run, WindowModel& windows, std::string_view arguments) {
  std::string text;
  bool isTitle = false;
  for (const std::string& argument : SplitArguments(run, arguments, kEscrevaPlaces)) {
    if (argument.empty()) break;
    if (Upper(argument) == "TITULOJANELA") {
      isTitle = true;
    } else if (argument == "Data()" || argument == "Hora()") {
      text += EvalText(run, argument).ToText();
    } else {
      text += EvalNumber(run, argument).ToText();
    }
  }
  Form& form = *windows.CurrentForm;
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
  run.host.events.ProcessEvents();
  return {};
}

Value Posicione(Run& run, WindowModel& windows, std::string_view arguments) {
  const auto parts = SplitArguments(run, arguments, kPosicionePlaces);
  Form& form = *windows.CurrentForm;
  form.CurrentY = EvalNumber(run, parts[0]).ToDouble() * windows.TamLin;
  form.CurrentX = EvalNumber(run, parts[1]).ToDouble() * windows.TamCol;
  windows.PrintLinePixels = CursorInteger(form.CurrentY);
  windows.PrintColumnPixels = CursorInteger(form.CurrentX);
  return {};
}

// OPEN: clearing leaves the print position where it is, on the window as in the cursor's integers, so that
// the next line stands where it would have stood.
Value Cls(Run&, WindowModel& windows, std::string_view) {
  windows.CurrentForm->Cls();
  return {};
}

Value Fonte(Run& run, WindowModel& windows, std::string_view arguments) {
  bool numericTarget = false;
  auto parts = SplitArguments(run, arguments, kFontePlaces, true, numericTarget);
  if (!Contains(parts[0], ".")) parts[0] = "PAI." + parts[0];
  const std::string& property = parts[0];
  const std::string& value = parts[2];
  Form* form = windows.FindWindow(Left(property, Find(property, ".") - 1));
  if (form == nullptr) return {};
  const auto isOn = [&] { return Upper(EvalNumber(run, value).ToText()) != "NAO"; };
  if (Contains(property, "Nome")) form->Font.name = EvalText(run, value).ToText();
  if (Contains(property, "Tamanho")) form->Font.size = EvalNumber(run, value).ToDouble();
  if (Contains(property, "Cor")) form->ForeColor = EvalNumber(run, value).ToInteger();
  if (Contains(property, "Negrito")) form->Font.bold = isOn();
  if (Contains(property, "Italico")) form->Font.italic = isOn();
  return {};
}

// The current window's size in lines or columns of the grid.
Value GridCount(double scale, std::int16_t pixels) {
  if (pixels == 0) FailDivision();
  return RoundToInteger(scale / pixels + 0.5);
}

Value AlturaJanela(Run&, WindowModel& windows, std::string_view) {
  return GridCount(windows.CurrentForm->ScaleHeight(), windows.TamLin);
}

Value LarguraJanela(Run&, WindowModel& windows, std::string_view) {
  return GridCount(windows.CurrentForm->ScaleWidth(), windows.TamCol);
}

constexpr WindowCommandRow kRows[] = {
    {"ESCREVA", Escreva},
    {"POSICIONE", Posicione},
    {"CLS", Cls},
    {"LIMPAJANELA", Cls},
    {"FONTE", Fonte},
    {"ALTURAJANELA", AlturaJanela},
    {"LARGURAJANELA", LarguraJanela},
};

}  // namespace

void AddWindowCommands(CommandTable& table, Run& run, WindowModel& windows) {
  AddRows(table, run, windows, kRows);
}

}  // namespace tessera
