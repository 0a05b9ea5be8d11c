#include "commands/command_table.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kPrefixLetters = 3;

[[noreturn]] void Refuse(std::string_view word, std::string_view reason) {
  throw std::logic_error("command " + std::string(word) + ": " + std::string(reason));
}

// Behind a prefix that has words of its own, as `Rel.Config`, other names are none of the language's.
bool IsWordToCome(const WordCall& call) {
  if (!call.word.Has(trait::kPrefix)) return true;
  const std::string_view own = call.name.substr(std::min(call.name.size(), call.word.name.size() + 1));
  return call.name.substr(call.word.name.size()).starts_with('.') &&
         FindForm(call.word.more.keywords, Upper(own)) != nullptr;
}

}  // namespace

CommandTable::CommandTable(Run& run) : run_(run) {
  run.doors.CommandCall = [this](std::string_view name, const ArgumentText& arguments) {
    return CommandCall(name, arguments);
  };
  for (const Word& word : Words()) {
    if (!word.Has(trait::kComing)) continue;
    commands_.try_emplace(Upper(word.name), Command{word, [this](const WordCall& call) {
                                                      if (IsWordToCome(call)) TellComing(call);
                                                      return Value();
                                                    }});
  }
}

void CommandTable::Add(std::string_view name, CommandHandler handler) {
  const Word* word = FindWord(name);
  if (word == nullptr) Refuse(name, "no word of the language");
  if (word->Has(trait::kComing)) Refuse(name, "marked as not yet bound");
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
  return command->handler({run_, command->word, name, arguments.text, arguments.forms});
}

// OPEN: once in a run, so that a loop over such a word does not hold the program up.
void CommandTable::TellComing(const WordCall& call) {
  if (!told_.insert(&call.word).second) return;
  ShowCritical(run_,
               std::string("O comando "_w)
                   .append(call.name)
                   .append(" ainda não existe nesta versão do Tessera.\rO programa continua sem ele.\r"_w)
                   .append(SourcePositionText(run_)));
}

bool IsReservedWord(const FunctionTable& functions, std::string_view word) {
  const std::string upper = Upper(word);
  return functions.ContainsIgnoringCase(word) || BeginsWithBlockWord(upper) || upper.ends_with(':') ||
         upper.ends_with('+') || upper.ends_with('-');
}

}  // namespace tessera
