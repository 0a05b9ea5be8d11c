// The dispatcher of the language's words: an upper-cased word leads to its handler, and behind all words
// stand the prefix rules. A command group adds its words; nobody but `ProgramRun` lists the groups.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "values/run.h"
#include "values/value.h"

namespace tessera {

// `name` is the word as the program wrote it, `arguments` the raw text behind it. A text result carries its
// double quotes, a number goes bare, the empty value is "none".
using CommandHandler = std::function<Value(std::string_view name, std::string_view arguments)>;

class CommandTable {
 public:
  // Fills the door `CommandCall` of the run, which outlives the table.
  explicit CommandTable(Run& run);
  CommandTable(const CommandTable&) = delete;
  CommandTable& operator=(const CommandTable&) = delete;

  // `word` in upper case.
  void Add(std::string_view word, CommandHandler handler);
  // Reached by any word whose first three letters, upper-cased, are `prefix`, when no word fits.
  void AddPrefix(std::string_view prefix, CommandHandler handler);

  // The handler's answer, or the empty value for a word that no rule catches.
  Value CommandCall(std::string_view name, std::string_view arguments) const;

 private:
  std::unordered_map<std::string, CommandHandler> handlers_;
  std::vector<std::pair<std::string, CommandHandler>> prefixes_;
};

// A row of a group's registration table: the word and a handler that needs the run alone.
struct CommandRow {
  std::string_view word;
  Value (*handler)(Run& run, std::string_view arguments);
};

template <std::size_t N>
void AddRows(CommandTable& table, Run& run, const CommandRow (&rows)[N]) {
  for (const CommandRow& row : rows) {
    table.Add(row.word, [&run, handler = row.handler](std::string_view, std::string_view arguments) {
      return handler(run, arguments);
    });
  }
}

// True if `word` may go to the dispatcher: a word of the language, one that begins with a block word, or one
// that ends in ":", "+" or "-".
bool IsReservedWord(const FunctionTable& functions, std::string_view word);

}  // namespace tessera
