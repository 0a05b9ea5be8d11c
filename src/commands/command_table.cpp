#include "commands/command_table.h"

#include "language/words.h"
#include "text/one_based.h"

namespace tessera {

CommandTable::CommandTable(Run& run) {
  run.doors.CommandCall = [this](std::string_view name, std::string_view arguments) {
    return CommandCall(name, arguments);
  };
}

void CommandTable::Add(std::string_view word, CommandHandler handler) {
  handlers_.insert_or_assign(std::string(word), std::move(handler));
}

void CommandTable::AddPrefix(std::string_view prefix, CommandHandler handler) {
  prefixes_.emplace_back(prefix, std::move(handler));
}

Value CommandTable::CommandCall(std::string_view name, std::string_view arguments) const {
  const std::string upper = Upper(name);
  if (const auto found = handlers_.find(upper); found != handlers_.end())
    return found->second(name, arguments);
  for (const auto& [prefix, handler] : prefixes_) {
    if (Left(upper, 3) == prefix) return handler(name, arguments);
  }
  return {};
}

bool IsReservedWord(const FunctionTable& functions, std::string_view word) {
  const std::string upper = Upper(word);
  return functions.ContainsIgnoringCase(word) || BeginsWithBlockWord(upper) || upper.ends_with(':') ||
         upper.ends_with('+') || upper.ends_with('-');
}

}  // namespace tessera
