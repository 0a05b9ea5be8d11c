// A row of a registration table whose handlers need the windows beside the run.
#pragma once

#include <cstddef>
#include <string_view>

#include "commands/command_table.h"
#include "windows/window_model.h"

namespace tessera {

struct WindowCommandRow {
  std::string_view word;
  Value (*handler)(Run& run, WindowModel& windows, std::string_view arguments);
};

template <std::size_t N>
void AddRows(CommandTable& table, Run& run, WindowModel& windows, const WindowCommandRow (&rows)[N]) {
  for (const WindowCommandRow& row : rows) {
    table.Add(row.word,
              [&run, &windows, handler = row.handler](std::string_view, std::string_view arguments) {
                return handler(run, windows, arguments);
              });
  }
}

}  // namespace tessera
