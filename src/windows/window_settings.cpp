#include "windows/window_settings.h"

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

std::vector<std::string> SplitAtEqual(Run& run, std::string_view arguments) {
  bool numericTarget = false;
  return SplitArguments(run, arguments, Settings::kPlaces, true, numericTarget);
}

// Pixels of one of so many lines or columns.
std::int16_t GridPixels(double scale, double count) {
  return Value(scale / (count == 0 ? 1 : count)).ToShort();
}

double LinesOrColumns(const Settings& settings, std::size_t place, PositionNumbers numbers) {
  if (numbers == PositionNumbers::Computed) return settings.Number(place).ToDouble();
  // KEPT: the keyword converts what is written and evaluates nothing
  // (JanelaCommand.ThePositionTakesALiteralNumberAlone).
  return Value(settings.Raw(place)).ToDouble();
}

}  // namespace

Settings::Settings(Run& run, std::string_view arguments) : run_(run), parts_(SplitAtEqual(run, arguments)) {}

const std::string& Settings::Raw(std::size_t place) const {
  if (place >= parts_.size()) FailSubscript();
  return parts_[place];
}

Value Settings::Number(std::size_t place) const {
  return EvalNumber(run_, Raw(place));
}

std::string Settings::Word(std::size_t place) const {
  return Upper(Number(place).ToText());
}

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
                   const Settings& settings, std::size_t place) {
  const double lines = settings.Number(place).ToDouble();
  const double columns = settings.Number(place + 1).ToDouble();
  windows.TamLin = GridPixels(form.ScaleHeight(), lines);
  windows.TamCol = GridPixels(form.ScaleWidth(), columns);
  WriteGridVariables(run, windows, screen);
}

void SetSize(Form& form, ScreenSize screen, const Settings& settings, std::size_t place) {
  constexpr std::string_view kMaximum = "MAXIMO";
  Placement to = form.Place();
  if (settings.Word(place) == kMaximum) {
    to.Top = 0;
    to.Height = screen.Height;
  } else if (!settings.Raw(place).empty()) {
    to.Height = settings.Number(place).ToDouble() * kWindowLineTwips + kFrameTwips;
  }
  if (settings.Word(place + 1) == kMaximum) {
    to.Left = 0;
    to.Width = screen.Width;
  } else if (!settings.Raw(place + 1).empty()) {
    to.Width = settings.Number(place + 1).ToDouble() * kWindowColumnTwips;
  }
  form.Move(to);
}

void SetPosition(Form& form, ScreenSize screen, const Settings& settings, std::size_t place,
                 PositionNumbers numbers) {
  constexpr std::string_view kCentre = "CENTRO";
  Placement to = form.Place();
  if (settings.Word(place) == kCentre) {
    to.Top = (screen.Height - to.Height) / 2;
  } else if (!settings.Raw(place).empty()) {
    to.Top = LinesOrColumns(settings, place, numbers) * kWindowLineTwips;
  }
  if (settings.Word(place + 1) == kCentre) {
    to.Left = (screen.Width - to.Width) / 2;
  } else if (!settings.Raw(place + 1).empty()) {
    to.Left = LinesOrColumns(settings, place + 1, numbers) * kWindowColumnTwips;
  }
  form.Move(to);
}

}  // namespace tessera
