#include "windows/picture_commands.h"

#include <optional>
#include <string>

#include "commands/arguments.h"
#include "commands/resolve_file.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/picture_file.h"
#include "windows/stock_pictures.h"
#include "windows/window_command_row.h"

namespace tessera {

namespace {

constexpr long kNoPicture = 481;

double NumberOrZero(Run& run, std::string_view text) {
  const Value value = EvalNumber(run, text);
  return value.IsNumeric() ? value.ToDouble() : 0;
}

// Left and top in pixels, or nothing where line or column is 0.
std::optional<PixelPoint> PlaceOf(Run& run, const WindowModel& windows, const FundoArguments& arguments) {
  const double line = NumberOrZero(run, arguments.line);
  const double column = NumberOrZero(run, arguments.column);
  if (line == 0 || column == 0) return std::nullopt;
  return PixelPoint{.x = RoundToInteger(column * windows.TamCol), .y = RoundToInteger(line * windows.TamLin)};
}

// False where the file is missing, behind its box.
bool ShowFile(Run& run, Form& window, const std::string& path, const std::optional<PixelPoint>& place) {
  PictureRef picture = PictureOfFile(run, path);
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

bool TryFundo(Run& run, const WindowModel& windows, Form& window, const FundoArguments& arguments,
              StockNames stock) {
  const Value value = EvalNumber(run, arguments.value);
  const std::string text = value.ToText();
  if (stock == StockNames::Known) {
    const std::int32_t number = StockNumber(StockKind::Background, text);
    if (number != kNoStockNumber) {
      window.SetBackground(StockPicture(StockKind::Background, number));
      return true;
    }
  }
  const auto place = PlaceOf(run, windows, arguments);
  if (value.IsNumeric()) {
    window.SetBackColor(value.ToInteger());
  } else if (run.variables.VarFind(text) >= 0) {
    window.SetBackColor(run.variables.VarRead(text).ToInteger());
  } else if (Upper(text) == "VAZIO") {
    window.SetBackground(nullptr);
  } else {
    return ShowFile(run, window, text, place);
  }
  return true;
}

Value Icone(Run& run, WindowModel& windows, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  windows.CurrentForm->SetIcon(PictureOfFile(run, arguments.Text(0)));
  return {};
}

constexpr WindowCommandRow kRows[] = {{"ICONE", Icone}};

}  // namespace

PictureRef PictureOfFile(Run& run, std::string_view path) {
  const std::string resolved = ResolveFile(run, path);
  if (resolved.empty()) return nullptr;
  PictureRef picture = LoadPicture(run.paths.SystemPath(resolved));
  if (!picture) Fail(kNoPicture);
  return picture;
}

// OPEN: the position stands on a line of its own, as in the boxes of other commands.
void SetFundo(Run& run, const WindowModel& windows, Form& window, const FundoArguments& arguments,
              StockNames stock) {
  bool done = false;
  Guard([&] { done = TryFundo(run, windows, window, arguments, stock); });
  if (!done) {
    ShowCritical(run, std::string("Erro no comando Fundo!").append(kCrLf).append(SourcePositionText(run)));
  }
}

void SetMouseIcone(Run& run, WindowModel& windows, std::string_view argument) {
  windows.CurrentForm->SetMouseIcon(PictureOfFile(run, EvalText(run, argument).ToText()));
}

void AddPictureCommands(CommandTable& table, Run& run, WindowModel& windows) {
  AddRows(table, run, windows, kRows);
}

}  // namespace tessera
