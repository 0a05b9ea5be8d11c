// `LimpaBD`: the one operation that gives the space of deleted records back. It copies the live records to a
// temporary file, which stands in the folder as the sign that a cleaning is running, and lets it take the
// database file's place.
#pragma once

#include "commands/command_table.h"
#include "recorddb/database_table.h"

namespace tessera {

// Binds `LimpaBD`.
void BindCleaningCommand(CommandTable& table, RecordContext& context);

}  // namespace tessera
