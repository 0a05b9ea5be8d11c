// The validators: tax numbers, e-mail addresses and dates. Their answer is a quoted truth word.
#pragma once

#include <cstdint>

#include "commands/command_table.h"

namespace tessera {

// Days of a month of 1 to 12, 0 for any other. Every fourth year is a leap year.
std::int32_t MonthLength(std::int32_t month, std::int32_t year);

void BindValidationCommands(CommandTable& table);

}  // namespace tessera
