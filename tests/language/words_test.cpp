#include "language/words.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "commands/form_table.h"
#include "language/families.h"
#include "support/console_window.h"
#include "support/core_program.h"

namespace tessera::test {

namespace {

class WordsTest : public ConsoleWindowTest {};

}  // namespace

TEST_F(WordsTest, EachWordHasARoom) {
  for (const Word& word : Words()) {
    const bool isBound = program.commands.Find(word.name) != nullptr;
    EXPECT_NE(isBound, word.Has(trait::kEngine)) << word.name;
  }
}

TEST(CommandTable, RefusesWordsThatAreUnknownOrBoundAlready) {
  CoreProgram program;
  const auto nothing = [](const WordCall&) { return Value(); };
  EXPECT_NO_THROW(program.commands.Add("Escreva", nothing)) << "windows bind it, and there are none";
  EXPECT_THROW(program.commands.Add("Escreva", nothing), std::logic_error);
  EXPECT_THROW(program.commands.Add("Escrevo", nothing), std::logic_error);
}

TEST_F(WordsTest, PrefixesCatchWhatNoWordDoes) {
  const auto found = [&](std::string_view name) {
    const Command* command = program.commands.Find(name);
    return command == nullptr ? "" : command->word.name;
  };
  EXPECT_EQ(found("Caractere"), "Car");
  EXPECT_EQ(found("carro"), "Car");
  EXPECT_EQ(found("rel.qualquer"), "Rel");
  EXPECT_EQ(found("Imagem"), "Imagem");
  EXPECT_EQ(found("Unirs"), "");
}

TEST(FormTable, RefusesFormsWithoutAnActAndActsWithoutAForm) {
  using Table = FormTable<int>;
  const std::span<const WordForm> forms = FindWord("EstiloBotao")->more.keywords;
  std::vector<Table::Row> rows;
  for (const WordForm& form : forms) rows.push_back({form.word, 1});
  EXPECT_NO_THROW(Table(forms, {rows}));
  rows.pop_back();
  EXPECT_THROW(Table(forms, {rows}), std::logic_error);
  rows.push_back({"OUTRA", 1});
  EXPECT_THROW(Table(forms, {rows}), std::logic_error);
}

TEST(Words, TellEnoughForAManual) {
  std::set<std::string> names;
  for (const std::span<const Word> words : {Words(), StructureWords()}) {
    for (const Word& word : words) {
      EXPECT_TRUE(names.insert(Upper(word.name)).second) << word.name;
      EXPECT_TRUE(word.help.ends_with('.')) << word.name;
      EXPECT_LT(word.arguments.size(), word.Places())
          << word.name << ": one argument too many is passed over";
      for (const auto& forms : {word.more.keywords, word.more.suffixes, word.more.otherForms}) {
        for (const WordForm& form : forms) {
          EXPECT_TRUE(form.help.ends_with('.')) << word.name << form.word;
          EXPECT_EQ(FindForm(forms, form.word), &form) << word.name << form.word << " stands twice";
        }
      }
    }
  }
  for (const Family& family : Families()) EXPECT_NE(FindWord(family.word), nullptr) << family.word;
  for (const std::string_view array : {"AniGif", "LblRotulo"})
    EXPECT_EQ(CarriedBy(array), Carried::MainAlone);
  for (const std::string_view array : {"GifAni", "MultiLine"})
    EXPECT_EQ(CarriedBy(array), Carried::Everywhere);
}

TEST(Words, StandBeforeTheWordsThatTheyContain) {
  const std::vector<std::string> names = WordNames();
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (std::size_t j = i + 1; j < names.size(); ++j) {
      if (names[i] == "Var" && names[j] == "Variavel") continue;  // no calls
      EXPECT_EQ(names[j].find(names[i]), std::string::npos) << names[i] << " hides " << names[j];
    }
  }
}

TEST(Signature, ReadsWhatAManualShows) {
  const Signature signature = "nome:w, modo:ABRIR|SALVAR, [linha 1:n], valor:v...";
  ASSERT_EQ(signature.size(), 4U);
  EXPECT_EQ(signature[0].name, "nome");
  EXPECT_EQ(signature[0].kind, Kind::AsWritten);
  EXPECT_EQ(signature[1].words, "ABRIR|SALVAR");
  EXPECT_EQ(signature[2].name, "linha 1");
  EXPECT_EQ(signature[2].need, Need::Optional);
  EXPECT_TRUE(signature.IsList());
  EXPECT_EQ(signature.PlaceOf("valor"), 3U);
  EXPECT_THROW(signature.PlaceOf("coluna"), std::logic_error);
  EXPECT_EQ(Signature().size(), 0U);
}

}  // namespace tessera::test
