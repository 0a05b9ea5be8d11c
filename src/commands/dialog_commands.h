// `CaixaDialogo`: the desktop's own dialogs.
#pragma once

#include <string>
#include <string_view>

#include "commands/command_table.h"
#include "platform/host.h"
#include "values/run.h"

namespace tessera {

// The record of a font: a text of fixed columns, 1-30 the name, 31-33 the size, 34-43 bold, 44-53 italic.
std::string FontRecord(const ChosenFont& font);
// The font of such a record; what a short text lacks is empty.
ChosenFont FontOfRecord(std::string_view record);

// The printer that the person chose in a dialog; empty for the system's own choice.
struct ChosenPrinter {
  std::string name;
};

// The choice outlives the table.
void BindDialogCommands(CommandTable& table, ChosenPrinter& printer);

}  // namespace tessera
