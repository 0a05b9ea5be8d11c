#include "commands/text_commands.h"

#include <gtest/gtest.h>

#include "support/library_program.h"

namespace tessera {
namespace {

using test::ExpectAnswers;
using test::ExpectValues;
using test::LibraryProgram;

TEST(TextCommands, UnirJoinsValuesUpToTheFirstEmptyOne) {
  ExpectValues({{R"(Unir("a",1,"b"))", "a1b"},
                {R"(Unir("a",,"b"))", "a"},
                {R"(Unir("a",1+2,1.5))", "a31,5"},
                {R"(Unir("ç","ã"))", "çã"}});
}

TEST(TextCommands, SepareCutsFromAPositionOfSixteenBits) {
  ExpectValues({{R"(Separe("abcd",2))", "bcd"},
                {R"(Separe("abcd",2,2))", "bc"},
                {R"(Separe("abcd",9))", ""},
                {R"(Separe("abcd",2,0))", ""},
                {R"(Separe("abcd",1.5))", "bcd"},
                {R"(Separe("abcd",0))", "falha 5"},
                {R"(Separe("abcd",1,0-1))", "falha 5"},
                {R"(Separe("abcd",40000))", "falha 6"},
                {R"(Separe("abcd",1,40000))", "falha 6"},
                {R"(Separe("abcd",1,2,3,4))", "falha 9"}});
}

TEST(TextCommands, LengthsCodesAndBlanks) {
  ExpectValues({{R"(Comprimento("abc"))", "3"},
                {R"(Comprimento(""))", "0"},
                {R"(Comprimento("a+b"))", "3"},
                {R"(Apara("  a b "))", "a b"},
                {R"(Asc("A"))", "65"},
                {R"(Asc("€"))", "128"},
                {R"(Asc(""))", "falha 5"},
                {R"(Car(65))", "A"},
                {R"(Caractere(231))", "ç"},
                {R"(Car(256))", "falha 5"},
                {R"(Car(0-1))", "falha 5"}});
  EXPECT_EQ(LibraryProgram().Answer("Carro", "65"), "\"A\"");
}

TEST(TextCommands, SequenciaRepeatsACodeOrTheFirstCharacter) {
  ExpectValues({{R"(Sequencia(3,"xy"))", "xxx"},
                {R"(Sequencia(3,65))", "AAA"},
                {R"(Sequencia(2,"5"))", "55"},
                {R"(Sequencia(0,"x"))", ""},
                {R"(Sequencia(2,321))", "AA"},
                {R"(Sequencia(40000,"x"))", "falha 6"},
                {R"(Sequencia(0-1,"x"))", "falha 5"},
                {R"(Sequencia(2,""))", "falha 5"}});
}

TEST(TextCommands, PosIniSearchesForwardOrBack) {
  for (const std::string_view name : {"PosIni", "POSICAOINICIAL"}) {
    ExpectAnswers(name, {{R"("abcabc","b")", "2"},
                         {R"("abcabc","b",3)", "5"},
                         {R"("abc","B")", "0"},
                         {R"("abc","c",9)", "0"},
                         {R"("abcabc","b","INVER")", "5"},
                         {R"("abcabc","b","inverso",4)", "2"},
                         {R"("abcabc","bc","INVER",5)", "2"},
                         {R"("abcabc","bc","INVER",6)", "5"},
                         {R"("abcabc","bc","INVER",99)", "5"},
                         {R"("a","abc","INVER")", "0"},
                         {R"("abc","c",0)", "falha 5"},
                         {R"("abc","c","x")", "falha 13"}});
  }
}

TEST(TextCommands, SobreponhaWritesIntoTheVariable) {
  const auto after = [](std::string_view arguments) {
    return LibraryProgram().Run("Var s String\ns = \"abcd\"\nSobreponha " + std::string(arguments) +
                                "\nEscreva s\n");
  };
  EXPECT_EQ(after("s, \"XY\", 2"), "aXYd\n");
  EXPECT_EQ(after("s, \"XY\", 4"), "abcX\n");
  EXPECT_EQ(after("s, \"XYZ\", 2, 1"), "aXcd\n");
  EXPECT_EQ(after("s, \"XYZ\", 2, 0"), "aXYZ\n");
  EXPECT_EQ(after("s, \"X\", 9"), "abcd\n");
  EXPECT_EQ(after("s, \"X\", 0"), "falha 5\n");
}

TEST(TextCommands, NumbersAndTextsTurnIntoEachOther) {
  ExpectValues({{R"(ConvStr(1.5))", "1,5"},
                {R"(ConvStr(0-7))", "-7"},
                {R"(ConvStr(" a "))", "a"},
                {R"(ValStr("12abc") + 1)", "13"},
                {R"(ValStr("1.5x") + 0)", "1,5"},
                {R"(ValStr("1,5"))", "1"},
                {R"(ValStr("x"))", "0"}});
  // A text of marked parentheses reads plain.
  LibraryProgram program;
  program.run.variables.VarCreateArray("v(3)", kTypeString);
  program.run.variables.VarWrite("v(2)", std::string("42 anos"), true);
  EXPECT_EQ(program.Answer("ValStr", "v(1]2[1)"), "42");
  EXPECT_EQ(program.Answer("ValStr", "v(12]2[12)"), "42");
}

TEST(TextCommands, FormataKnowsTheStandardWordInAnyCase) {
  ExpectValues({{R"(Formata(1234.5,"padrao"))", "1.234,50"},
                {R"(Formata(0.125,"PADRAO"))", "0,125"},
                {R"(Formata(0-7,"Padrao"))", "-7,00"},
                {R"(Formata(1/3,"PADRAO"))", "0,333333"},
                {R"(Formata(0.00001,"PADRAO"))", "0,00001"},
                {R"(Formata(999999999999,"PADRAO"))", "999.999.999.999,00"},
                {R"(Formata(1000000000000,"PADRAO"))", "falha 5"},
                {R"(Formata(1234.5,"#,##0.00"))", "1.234,50"},
                {R"(Formata("05/03/2009","dd-mm-yy"))", "05-03-09"},
                {R"(Formata("abc","0.00"))", "abc"},
                {R"(Formata(99999999,"dd/mm/yyyy"))", "falha 6"}});
}

}  // namespace
}  // namespace tessera
