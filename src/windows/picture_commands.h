// Pictures on windows: the background, the cursor and the icon.
#pragma once

#include <string_view>

#include "commands/arguments.h"
#include "commands/command_table.h"
#include "values/run.h"
#include "windows/picture.h"

namespace tessera {

class Form;
struct WindowModel;

// The picture of a file as a program names it, for a cursor or an icon; nothing where `ResolveFile` finds
// none. Failure 481 for a file that holds no picture.
PictureRef PictureOfFile(Run& run, std::string_view path);

enum class StockNames { Known, Unknown };

// The background of a window, from the values of "FUNDO": a stock name, a colour, "VAZIO" or a file. A
// failure is told in a box, and the run goes on.
void SetFundo(Run& run, const WindowModel& windows, Form& window, const ArgumentView& values,
              StockNames stock);

// The cursor of the current window from a file: "MOUSEICONE".
void SetMouseIcone(Run& run, WindowModel& windows, std::string_view path);

// `Icone`.
void BindPictureCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
