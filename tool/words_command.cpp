// `tessera words`: the language's own table as JSON, for what is made from it: the manual, colours for
// editors.
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <span>
#include <string>

#include "language/builtins.h"
#include "language/spelling.h"
#include "language/words.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array kTopics = {"structure", "texts",    "numbers", "dates",   "checks",
                                "files",     "system",   "records", "sql",     "windows",
                                "objects",   "pictures", "events",  "drawing", "reports",
                                "printing",  "media",    "web",     "network", "libraries"};
static_assert(kTopics.size() == static_cast<std::size_t>(Topic::Libraries) + 1);

constexpr std::array kRoles = {"statement", "value", "both", "declaration", "block"};
static_assert(kRoles.size() == static_cast<std::size_t>(Role::Block) + 1);

constexpr std::array kResults = {"none", "number", "text"};
static_assert(kResults.size() == static_cast<std::size_t>(Result::Text) + 1);

constexpr std::array kValues = {"equals", "list", "none"};
static_assert(kValues.size() == static_cast<std::size_t>(Values::None) + 1);

template <std::size_t kSize, class Choice>
const char* NameOf(const std::array<const char*, kSize>& names, Choice choice) {
  return names.at(static_cast<std::size_t>(choice));
}

Json FormsOf(std::span<const WordForm> forms) {
  Json list = Json::array();
  for (const WordForm& form : forms) {
    list.push_back({{"word", form.word},
                    {"spelled", Spelled(form.word)},
                    {"values", NameOf(kValues, form.values)},
                    {"arguments", form.arguments.text()},
                    {"result", NameOf(kResults, form.result)},
                    {"help", form.help}});
  }
  return list;
}

Json RowOf(const Word& word) {
  return {{"name", word.name},
          {"topic", NameOf(kTopics, word.topic)},
          {"role", NameOf(kRoles, word.role)},
          {"result", NameOf(kResults, word.result)},
          {"arguments", word.arguments.text()},
          {"help", word.help},
          {"forms", FormsOf(word.more.otherForms)},
          {"keywords", FormsOf(word.more.keywords)},
          {"suffixes", FormsOf(word.more.suffixes)}};
}

}  // namespace

int WordsSubcommand() {
  Json table = {{"words", Json::array()}, {"variables", Json::array()}};
  for (const std::span<const Word> words : {Words(), StructureWords()}) {
    for (const Word& word : words) table["words"].push_back(RowOf(word));
  }
  for (const Builtin& builtin : Builtins()) {
    table["variables"].push_back({{"name", builtin.name}, {"type", builtin.type}, {"help", builtin.help}});
  }
  std::cout << table.dump(1) << '\n';
  return kDone;
}

}  // namespace tessera
