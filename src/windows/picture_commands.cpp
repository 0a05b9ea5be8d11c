#include "windows/picture_commands.h"

#include <optional>
#include <string>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/stock_pictures.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

double NumberOrZero(const Value& value) {
  return value.IsNumeric() ? value.ToDouble() : 0;
}

// Left and top in pixels, or nothing where line or column is 0.
std::optional<PixelPoint> PlaceOf(const WindowModel& windows, const ArgumentView& values) {
  const double line = NumberOrZero(values.Number("linha"));
  const double column = NumberOrZero(values.Number("coluna"));
  if (line == 0 || column == 0) return std::nullopt;
  return PixelPoint{.x = RoundToInteger(column * windows.TamCol), .y = RoundToInteger(line * windows.TamLin)};
}

// False where the file is missing, behind its box.
bool ShowFile(Run& run, WindowModel& windows, Form& window, const std::string& path,
              const std::optional<PixelPoint>& place) {
  PictureRef picture = windows.pictures.OfFile(path);
  if (!picture) {
    ShowCritical(run, std::string("Fundo - Arquivo de imagem não encontrado:"_w).append(kCrLf).append(path));
    return false;
  }
  if (place) {
    window.PaintPicture(picture, *place);
  } else {
    window.SetBackground(std::move(picture));
  }
  return true;
}

bool TryFundo(Run& run, WindowModel& windows, Form& window, const ArgumentView& values, StockNames stock) {
  const Value value = values.Number("fundo");
  const std::string text = value.ToText();
  if (stock == StockNames::Known) {
    const std::int32_t number = StockNumber(StockKind::Background, text);
    if (number != kNoStockNumber) {
      window.SetBackground(windows.pictures.Stock(StockKind::Background, number));
      return true;
    }
  }
  const auto place = PlaceOf(windows, values);
  if (value.IsNumeric()) {
    window.SetBackColor(value.ToInteger());
  } else if (run.variables.VarFind(text) >= 0) {
    window.SetBackColor(run.variables.VarRead(text).ToInteger());
  } else if (Upper(text) == "VAZIO") {
    window.SetBackground(nullptr);
  } else {
    return ShowFile(run, windows, window, text, place);
  }
  return true;
}

Value Icone(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  windows.CurrentForm().SetIcon(windows.pictures.OfFile(arguments.Text("arquivo")));
  return {};
}

constexpr RowOn<WindowModel> kRows[] = {{"Icone", Icone}};

}  // namespace

PictureRef PictureByName(Run& run, WindowModel& windows, const std::string& name) {
  if (name.empty()) return nullptr;
  for (const StockKind kind : {StockKind::Figure, StockKind::Background}) {
    const std::int32_t number = StockNumber(kind, name);
    if (number != kNoStockNumber) return windows.pictures.Stock(kind, number);
  }
  return FigureOfFile(run, windows, name);
}

PictureRef FigureOfFile(Run& run, WindowModel& windows, const std::string& path) {
  if (path.empty()) return nullptr;
  PictureRef picture = windows.pictures.OfFile(path);
  if (!picture) ShowCritical(run, std::string("Caminho da figura não encontrado:\r"_w).append(path));
  return picture;
}

// OPEN: the position stands on a line of its own, as in the boxes of other commands.
void SetFundo(Run& run, WindowModel& windows, Form& window, const ArgumentView& values, StockNames stock) {
  bool done = false;
  Guard([&] { done = TryFundo(run, windows, window, values, stock); });
  if (!done) {
    ShowCritical(run, std::string("Erro no comando Fundo!").append(kCrLf).append(SourcePositionText(run)));
  }
}

void SetMouseIcone(WindowModel& windows, std::string_view path) {
  windows.CurrentForm().SetMouseIcon(windows.pictures.OfFile(path));
}

void BindPictureCommands(CommandTable& table, WindowModel& windows) {
  Bind(table, kRows, windows);
}

}  // namespace tessera
