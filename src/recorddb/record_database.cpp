#include "recorddb/record_database.h"

#include "recorddb/cleaning.h"
#include "recorddb/descriptor.h"
#include "recorddb/order_commands.h"
#include "recorddb/record_commands.h"

namespace tessera {

RecordDatabase::RecordDatabase(CommandTable& table, Run& run, bool quickOrders)
    : context_{.run = run, .quickOrders = quickOrders} {
  BindRecordCommands(table, context_);
  BindOrderCommands(table, context_);
  BindCleaningCommand(table, context_);
  run.doors.RunDatabaseBlock = [this](std::string_view text, Position position, Position lineEnd,
                                      std::int32_t statement) {
    return RunDatabaseBlock(context_, text, position, lineEnd, statement);
  };
}

}  // namespace tessera
