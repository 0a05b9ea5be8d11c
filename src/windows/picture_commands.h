// Pictures on windows: the background, the cursor and the icon.
#pragma once

#include <string_view>

#include "commands/command_table.h"
#include "values/run.h"
#include "windows/picture.h"

namespace tessera {

class Form;
struct WindowModel;

// The picture of a file as a program names it, for a cursor or an icon; nothing where `ResolveFile` finds
// none. Failure 481 for a file that holds no picture.
PictureRef PictureOfFile(Run& run, std::string_view path);

// The arguments of "FUNDO" as the program wrote them.
struct FundoArguments {
  std::string_view value;
  std::string_view line;
  std::string_view column;
};

enum class StockNames { Known, Unknown };

// The background of a window: a stock name, a colour, "VAZIO" or a file. A failure is told in a box, and the
// run goes on.
void SetFundo(Run& run, const WindowModel& windows, Form& window, const FundoArguments& arguments,
              StockNames stock);

// The cursor of the current window from the file that the argument names: "MOUSEICONE".
void SetMouseIcone(Run& run, WindowModel& windows, std::string_view argument);

// `Icone`.
void AddPictureCommands(CommandTable& table, Run& run, WindowModel& windows);

}  // namespace tessera
