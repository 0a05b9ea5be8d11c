// The dispatcher of the language's words: a word leads to its handler. What a word is, and which of them
// catch others by a prefix, is told by its row in language/words.h. A room binds its words by one table of
// rows; nobody but `ProgramRun` lists the rooms.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>

#include "language/words.h"
#include "values/argument_text.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

// One use of a word.
struct WordCall {
  Run& run;
  const Word& word;
  std::string_view name;                      // as the program wrote it
  std::string_view text;                      // the raw text of the arguments behind it
  ArgumentForms* forms = nullptr;             // beside a text that never changes
  std::span<const std::string> answers = {};  // of the calls that were run for it
};

// A text result carries its double quotes, a number goes bare, the empty value is "none".
using CommandHandler = std::function<Value(const WordCall& call)>;

struct Command {
  const Word& word;
  CommandHandler handler;
};

class CommandTable {
 public:
  // Fills the door `CommandCall` of the run, which outlives the table.
  explicit CommandTable(Run& run);
  CommandTable(const CommandTable&) = delete;
  CommandTable& operator=(const CommandTable&) = delete;

  // Throws std::logic_error for a word that the language lacks or that has a handler: neither may reach a
  // program.
  void Add(std::string_view word, CommandHandler handler);

  // What a word of a program leads to, in any case; null where no rule catches it.
  const Command* Find(std::string_view name) const;

  // The handler's answer, or the empty value for a word that no rule catches.
  Value CommandCall(std::string_view name, const ArgumentText& arguments) const;

 private:
  Run& run_;
  std::unordered_map<std::string, Command> commands_;  // by the word in upper case
};

// A row of a room's table: a word and what does it.
template <typename Handler>
struct CommandRow {
  std::string_view word;
  Handler handler;
};

// The three kinds of handlers: one that needs nothing beside the call, one on a context, one of a group.
using PlainRow = CommandRow<Value (*)(const WordCall& call)>;
template <typename Context>
using RowOn = CommandRow<Value (*)(Context& context, const WordCall& call)>;
template <typename Group>
using MemberRow = CommandRow<Value (Group::*)(const WordCall& call)>;

// Binds the words of all rows. The context, if the handlers have one, outlives the table.
template <typename Handler, std::size_t N, typename... Context>
void Bind(CommandTable& table, const CommandRow<Handler> (&rows)[N], Context&... context) {
  for (const auto& row : rows) {
    table.Add(row.word, [handler = row.handler, &context...](const WordCall& call) {
      return std::invoke(handler, context..., call);
    });
  }
}

// True if `word` may go to the dispatcher: a word of the language, one that begins with a block word, or one
// that ends in ":", "+" or "-".
bool IsReservedWord(const FunctionTable& functions, std::string_view word);

}  // namespace tessera
