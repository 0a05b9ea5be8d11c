#include "windows/font_commands.h"

#include <string>
#include <vector>

#include "commands/arguments.h"
#include "platform/failure.h"

namespace tessera {

// The system gives printers and the screen the same fonts. Failure 9 for an index that the list has not got.
void BindFontCommands(CommandTable& table, Screen& screen) {
  table.Add("Fontes", [&screen](const WordCall& call) -> Value {
    const std::int32_t index = Arguments(call).Number("índice").ToInteger();
    const std::vector<std::string> names = screen.FontNames();
    if (index < 0 || index >= static_cast<std::int32_t>(names.size())) FailSubscript();
    return Quote(names[static_cast<std::size_t>(index)]);
  });
}

}  // namespace tessera
