// The record database of one run: the table, its commands and the `BD` block. What `ProgramRun`
// needs.
#pragma once

#include "commands/command_table.h"
#include "recorddb/database_table.h"

namespace tessera {

class RecordDatabase {
 public:
  // Binds the commands and fills the door `RunDatabaseBlock`. Tests turn `quickOrders` off to compare with
  // the plain form.
  RecordDatabase(CommandTable& table, Run& run, bool quickOrders = true);
  RecordDatabase(const RecordDatabase&) = delete;
  RecordDatabase& operator=(const RecordDatabase&) = delete;

 private:
  RecordContext context_;
};

}  // namespace tessera
