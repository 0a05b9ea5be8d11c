#include "commands/command_table.h"

#include <stdexcept>
#include <utility>

#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kPrefixLetters = 3;

[[noreturn]] void Refuse(std::string_view word, std::string_view reason) {
  throw std::logic_error("command " + std::string(word) + ": " + std::string(reason));
}

}  // namespace

CommandTable::CommandTable(Run& run) : run_(run) {
  run.doors.CommandCall = [this](std::string_view name, const ArgumentText& arguments) {
    return CommandCall(name, arguments);
  };
}

void CommandTable::Add(std::string_view name, CommandHandler handler) {
  const Word* word = FindWord(name);
  if (word == nullptr) Refuse(name, "no word of the language");
  if (!commands_.try_emplace(Upper(name), Command{*word, std::move(handler)}).second) {
    Refuse(name, "bound twice");
  }
}

const Command* CommandTable::Find(std::string_view name) const {
  const std::string upper = Upper(name);
  if (const auto found = commands_.find(upper); found != commands_.end()) return &found->second;
  const auto prefix = commands_.find(upper.substr(0, kPrefixLetters));
  const bool isCaught = prefix != commands_.end() && prefix->second.word.Has(trait::kPrefix);
  return isCaught ? &prefix->second : nullptr;
}

Value CommandTable::CommandCall(std::string_view name, const ArgumentText& arguments) const {
  // FAST: a text that never changes belongs to one word, which is looked up once.
  std::optional<const Command*> known;
  if (arguments.forms != nullptr) known = arguments.forms->command;
  const Command* command = known ? *known : Find(name);
  if (arguments.forms != nullptr) arguments.forms->command = command;
  if (command == nullptr) return {};
  return command->handler({run_, command->word, name, arguments.text, arguments.forms, arguments.answers});
}

bool IsReservedWord(const FunctionTable& functions, std::string_view word) {
  const std::string upper = Upper(word);
  return functions.ContainsIgnoringCase(word) || BeginsWithBlockWord(upper) || upper.ends_with(':') ||
         upper.ends_with('+') || upper.ends_with('-');
}

}  // namespace tessera
