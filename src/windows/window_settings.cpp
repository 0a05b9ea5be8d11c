#include "windows/window_settings.h"

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

// Pixels of one of so many lines or columns.
std::int16_t GridPixels(double scale, double count) {
  return Value(scale / (count == 0 ? 1 : count)).ToShort();
}

double LinesOrColumns(const ArgumentView& values, ArgumentName name, PositionNumbers numbers) {
  if (numbers == PositionNumbers::Computed) return values.Number(name).ToDouble();
  // KEPT: the keyword converts what is written and evaluates nothing
  // (JanelaCommand.ThePositionTakesALiteralNumberAlone).
  return Value(values.Raw(name)).ToDouble();
}

}  // namespace

void WriteScreenVariables(Run& run, const WindowModel& windows, ScreenSize screen) {
  if (windows.TamLin == 0 || windows.TamCol == 0) FailDivision();
  // In single precision; the two variables keep the nearest integer.
  run.variables.VarWrite("AlturaTela",
                         double{static_cast<float>(PixelsOfTwips(screen.Height) / windows.TamLin)}, true);
  run.variables.VarWrite("LarguraTela",
                         double{static_cast<float>(PixelsOfTwips(screen.Width) / windows.TamCol)}, true);
}

void WriteGridVariables(Run& run, const WindowModel& windows, ScreenSize screen) {
  run.variables.VarWrite("TamLin", std::int32_t{windows.TamLin}, true);
  run.variables.VarWrite("TamCol", std::int32_t{windows.TamCol}, true);
  WriteScreenVariables(run, windows, screen);
}

void SetResolution(Run& run, WindowModel& windows, ScreenSize screen, const Form& form,
                   const ArgumentView& values) {
  const double lines = values.Number("linhas").ToDouble();
  const double columns = values.Number("colunas").ToDouble();
  windows.TamLin = GridPixels(form.ScaleHeight(), lines);
  windows.TamCol = GridPixels(form.ScaleWidth(), columns);
  WriteGridVariables(run, windows, screen);
}

void SetSize(Form& form, ScreenSize screen, const ArgumentView& values) {
  constexpr std::string_view kMaximum = "MAXIMO";
  Placement to = form.Place();
  if (values.Word("linhas") == kMaximum) {
    to.Top = 0;
    to.Height = screen.Height;
  } else if (!values.Raw("linhas").empty()) {
    to.Height = values.Number("linhas").ToDouble() * kWindowLineTwips + kFrameTwips;
  }
  if (values.Word("colunas") == kMaximum) {
    to.Left = 0;
    to.Width = screen.Width;
  } else if (!values.Raw("colunas").empty()) {
    to.Width = values.Number("colunas").ToDouble() * kWindowColumnTwips;
  }
  form.Move(to);
}

void SetPosition(Form& form, ScreenSize screen, const ArgumentView& values, PositionNumbers numbers) {
  constexpr std::string_view kCentre = "CENTRO";
  Placement to = form.Place();
  if (values.Word("linha") == kCentre) {
    to.Top = (screen.Height - to.Height) / 2;
  } else if (!values.Raw("linha").empty()) {
    to.Top = LinesOrColumns(values, "linha", numbers) * kWindowLineTwips;
  }
  if (values.Word("coluna") == kCentre) {
    to.Left = (screen.Width - to.Width) / 2;
  } else if (!values.Raw("coluna").empty()) {
    to.Left = LinesOrColumns(values, "coluna", numbers) * kWindowColumnTwips;
  }
  form.Move(to);
}

}  // namespace tessera
