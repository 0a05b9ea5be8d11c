// Orders of a database: `OrdemBD` and `Procure`, and the list's upkeep under the record commands. An order
// lives in memory alone; an entry is a key and the record's physical position in six digits.
#pragma once

#include <cstdint>
#include <string_view>

#include "commands/command_table.h"
#include "recorddb/database_table.h"

namespace tessera {

enum class ListChange {
  Add,      // mode 0: the position is physical
  Replace,  // mode 1: the position is a place in the list, whose entry goes
};

// Enters a record into the order list. `record` is the stored record, whose fields are scrambled.
// Failure 13 where a replaced place holds no number.
void UpdateOrderList(RecordContext& context, std::int32_t position, std::string_view record,
                     std::int16_t slot, ListChange change);

// Binds `OrdemBD` and `Procure`.
void BindOrderCommands(CommandTable& table, RecordContext& context);

}  // namespace tessera
