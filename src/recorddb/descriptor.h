// The `BD` ... `FimBD` block: declares a database and its field variables, and creates its file.
#pragma once

#include <cstdint>
#include <string_view>

#include "recorddb/database_table.h"

namespace tessera {

// Runs the descriptor that begins on the line between `position` and `lineEnd` of `text`. Returns the number
// of its `FimBD` statement, or 0 when the text ends before one.
// Failures: 9 for a 22nd descriptor or a 301st field, 6 for a record of more than 32767 bytes, and those of
// opening the file.
std::int32_t RunDatabaseBlock(RecordContext& context, std::string_view text, Position position,
                              Position lineEnd, std::int32_t statement);

// The bytes of a new file: the header of `slot` with the count 0.
std::string NewHeader(RecordContext& context, const DatabaseSlot& slot, std::string_view password);

}  // namespace tessera
