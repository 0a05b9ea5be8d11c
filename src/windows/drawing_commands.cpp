#include "windows/drawing_commands.h"

#include "commands/arguments.h"
#include "windows/form.h"
#include "windows/gradient.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

// A line and a column as pixels: fractions count until the product is rounded. Failure 6 out of range.
PixelPoint PointAt(const WindowModel& windows, const ArgumentView& arguments, ArgumentName lineName,
                   ArgumentName columnName) {
  const double line = arguments.Number(lineName).ToDouble();
  const double column = arguments.Number(columnName).ToDouble();
  return {.x = RoundToInteger(column * windows.TamCol), .y = RoundToInteger(line * windows.TamLin)};
}

Colour ColourAt(const ArgumentView& arguments, ArgumentName name) {
  return arguments.Number(name).ToInteger();
}

// KEPT: the fill of a circle stays behind for the boxes that follow, until `Pinte` takes it back
// (DrawingTest.EachFigureStandsOnItsPixels).
Value Circulo(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  Surface& surface = windows.DrawingTarget();
  const PixelPoint centre = PointAt(windows, arguments, "linha", "coluna");
  const double radius = arguments.Number("raio").ToDouble() * windows.TamCol;
  const Colour colour = ColourAt(arguments, "cor");
  surface.FillColor = colour;
  surface.FillStyle = Filling::Solid;
  surface.Circle(centre, radius, colour);
  return {};
}

using TwoPoints = void (Surface::*)(PixelPoint from, PixelPoint to, Colour colour);

Value DrawBetween(WindowModel& windows, const WordCall& call, TwoPoints draw) {
  const Arguments arguments(call);
  const PixelPoint from = PointAt(windows, arguments, "linha 1", "coluna 1");
  const PixelPoint to = PointAt(windows, arguments, "linha 2", "coluna 2");
  const Colour colour = ColourAt(arguments, "cor");
  (windows.DrawingTarget().*draw)(from, to, colour);
  return {};
}

Value Retangulo(WindowModel& windows, const WordCall& call) {
  return DrawBetween(windows, call, &Surface::Box);
}

Value LinhaReta(WindowModel& windows, const WordCall& call) {
  return DrawBetween(windows, call, &Surface::Line);
}

// KEPT: the main window's pen tells which way a point is drawn, and the surface's own pen how wide it is
// (DrawingTest.APointIsAsWideAsThePen).
Value Ponto(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  const PixelPoint at = PointAt(windows, arguments, "linha", "coluna");
  const Colour colour = ColourAt(arguments, "cor");
  if (windows.MainWindow().DrawWidth == 1) {
    windows.DrawingTarget().SetPixel(at, colour);
  } else {
    windows.DrawingTarget().PSet(at, colour);
  }
  return {};
}

// KEPT: here a line and a column are rounded before they become pixels
// (DrawingTest.ReadingAPointRoundsLineAndColumnFirst).
Value LePonto(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  const std::int32_t line = arguments.Number("linha").ToInteger();
  const std::int32_t column = arguments.Number("coluna").ToInteger();
  return windows.DrawingTarget().Point({.x = RoundToInteger(double(column) * windows.TamCol),
                                        .y = RoundToInteger(double(line) * windows.TamLin)});
}

Value Pinte(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  Surface& surface = windows.DrawingTarget();
  const PixelPoint at = PointAt(windows, arguments, "linha", "coluna");
  surface.FillColor = ColourAt(arguments, "cor");
  surface.FillStyle = Filling::Solid;
  surface.FloodFill(at);
  surface.FillStyle = Filling::Transparent;
  return {};
}

Value PaintGradiente(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  Form& window = windows.CurrentForm();
  if (!arguments.IsEmpty("inicial")) {
    const Colour first = ColourAt(arguments, "inicial");
    window.Grd.CorFinal = ColourAt(arguments, "final");
    window.Grd.CorInicial = first;
  }
  window.Grd.FormGradiente(window);
  window.GrdAtivo = true;
  return {};
}

constexpr RowOn<WindowModel> kRows[] = {
    {"Circulo", Circulo}, {"Retangulo", Retangulo}, {"LinhaReta", LinhaReta},      {"Ponto", Ponto},
    {"LePonto", LePonto}, {"Pinte", Pinte},         {"Gradiente", PaintGradiente},
};

}  // namespace

void BindDrawingCommands(CommandTable& table, WindowModel& windows) {
  Bind(table, kRows, windows);
}

}  // namespace tessera
