// Pictures on windows: the background, the cursor and the icon.
#pragma once

#include <string>
#include <string_view>

#include "commands/arguments.h"
#include "commands/command_table.h"
#include "values/run.h"
#include "windows/picture.h"

namespace tessera {

class Form;
struct WindowModel;

// The picture that a surface or a figure is made with: a stock figure, a stock background, or a file. The
// empty name is no picture; a file that is missing is told in a box. Failure 481 for a file that holds none.
PictureRef PictureByName(Run& run, WindowModel& windows, const std::string& name);
// The same for what can only be a file.
PictureRef FigureOfFile(Run& run, WindowModel& windows, const std::string& path);

enum class StockNames { Known, Unknown };

// The background of a window, from the values of "FUNDO": a stock name, a colour, "VAZIO" or a file. A
// failure is told in a box, and the run goes on.
void SetFundo(Run& run, WindowModel& windows, Form& window, const ArgumentView& values, StockNames stock);

// The cursor of the current window from a file: "MOUSEICONE".
void SetMouseIcone(WindowModel& windows, std::string_view path);

// `Icone`.
void BindPictureCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
