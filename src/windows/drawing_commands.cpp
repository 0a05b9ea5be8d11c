#include "windows/drawing_commands.h"

#include "commands/arguments.h"
#include "windows/form.h"
#include "windows/window_command_row.h"

namespace tessera {

namespace {

// A line and a column as pixels: fractions count until the product is rounded. Failure 6 out of range.
PixelPoint PointAt(const WindowModel& windows, const Arguments& arguments, std::size_t place) {
  const double line = arguments.Number(place).ToDouble();
  const double column = arguments.Number(place + 1).ToDouble();
  return {.x = RoundToInteger(column * windows.TamCol), .y = RoundToInteger(line * windows.TamLin)};
}

Colour ColourAt(const Arguments& arguments, std::size_t place) {
  return arguments.Number(place).ToInteger();
}

// KEPT: the fill of a circle stays behind for the boxes that follow, until `Pinte` takes it back
// (DrawingTest.ABoxBehindACircleIsFilledInTheCirclesColourUntilPinte).
Value Circulo(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kFiveArguments);
  Surface& surface = *windows.CurrentForm;
  const PixelPoint centre = PointAt(windows, arguments, 0);
  const double radius = arguments.Number(2).ToDouble() * windows.TamCol;
  const Colour colour = ColourAt(arguments, 3);
  surface.FillColor = colour;
  surface.FillStyle = Filling::Solid;
  surface.Circle(centre, radius, colour);
  return {};
}

using TwoPoints = void (Surface::*)(PixelPoint from, PixelPoint to, Colour colour);

Value DrawBetween(Run& run, WindowModel& windows, std::string_view text, TwoPoints draw) {
  const Arguments arguments(run, text, kFiveArguments);
  const PixelPoint from = PointAt(windows, arguments, 0);
  const PixelPoint to = PointAt(windows, arguments, 2);
  const Colour colour = ColourAt(arguments, 4);
  (windows.CurrentForm->*draw)(from, to, colour);
  return {};
}

Value Retangulo(Run& run, WindowModel& windows, std::string_view text) {
  return DrawBetween(run, windows, text, &Surface::Box);
}

Value LinhaReta(Run& run, WindowModel& windows, std::string_view text) {
  return DrawBetween(run, windows, text, &Surface::Line);
}

// KEPT: the main window's pen tells which way a point is drawn, and the surface's own pen how wide it is
// (DrawingTest.APointIsAsWideAsThePen).
Value Ponto(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kThreeArguments);
  const PixelPoint at = PointAt(windows, arguments, 0);
  const Colour colour = ColourAt(arguments, 2);
  if (windows.MainWindow->DrawWidth == 1) {
    windows.CurrentForm->SetPixel(at, colour);
  } else {
    windows.CurrentForm->PSet(at, colour);
  }
  return {};
}

// KEPT: here a line and a column are rounded before they become pixels
// (DrawingTest.ReadingAPointRoundsLineAndColumnFirst).
Value LePonto(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  const std::int32_t line = arguments.Number(0).ToInteger();
  const std::int32_t column = arguments.Number(1).ToInteger();
  return windows.CurrentForm->Point({.x = RoundToInteger(double(column) * windows.TamCol),
                                     .y = RoundToInteger(double(line) * windows.TamLin)});
}

Value Pinte(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kThreeArguments);
  Surface& surface = *windows.CurrentForm;
  const PixelPoint at = PointAt(windows, arguments, 0);
  surface.FillColor = ColourAt(arguments, 2);
  surface.FillStyle = Filling::Solid;
  surface.FloodFill(at);
  surface.FillStyle = Filling::Transparent;
  return {};
}

Value PaintGradiente(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  Form& window = *windows.CurrentForm;
  if (!arguments.IsEmpty(0)) {
    const Colour first = ColourAt(arguments, 0);
    window.Grd.CorFinal = ColourAt(arguments, 1);
    window.Grd.CorInicial = first;
  }
  window.Grd.FormGradiente(window);
  window.GrdAtivo = true;
  return {};
}

constexpr WindowCommandRow kRows[] = {
    {"CIRCULO", Circulo}, {"RETANGULO", Retangulo}, {"LINHARETA", LinhaReta},      {"PONTO", Ponto},
    {"LEPONTO", LePonto}, {"PINTE", Pinte},         {"GRADIENTE", PaintGradiente},
};

}  // namespace

void AddDrawingCommands(CommandTable& table, Run& run, WindowModel& windows) {
  AddRows(table, run, windows, kRows);
}

}  // namespace tessera
