// The commands that open and close a database and move one record at a time between the file and the field
// variables. A record is addressed by a position from 0.
#pragma once

#include <string>
#include <string_view>

#include "commands/command_table.h"
#include "recorddb/database_table.h"

namespace tessera {

// Binds `AbreBD`, `FechaBD`, `AdicionaRegistro`, `AtualizaRegistro`, `ExcluiRegistro`, `LeRegistro` and
// `TotalRegistrosBD`.
void BindRecordCommands(CommandTable& table, RecordContext& context);

// Reads a record into the field variables, and returns its plain text in quotes, each field left-aligned in
// its width; the empty text for a deleted record or behind a message. `position` counts in the order list
// when one is in force.
std::string LeRegistro(RecordContext& context, std::int16_t slot, std::int32_t position);

// The bytes of a record to the variables of its fields, and their texts, each in its width. Failures of
// DecodeText.
std::string DecodeRecord(RecordContext& context, const DatabaseSlot& slot, std::string_view record);

// "" to the text fields' variables and 0 to the others.
void ClearVariables(RecordContext& context, const DatabaseSlot& slot);

// The value that the plain bytes of a field of that type are.
Value FieldValue(std::string_view type, std::string plain);

// A record of a deleted record's bytes, in the record file.
std::string DeletedRecord(RecordContext& context, std::int16_t slot);

// True when the record's first field holds the mark of deletion. Failures of DecodeText.
bool IsDeleted(const DatabaseSlot& slot, std::string_view record);

inline constexpr std::string_view kDeletedMark = "#";

}  // namespace tessera
