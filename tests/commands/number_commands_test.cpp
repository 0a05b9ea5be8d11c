#include "commands/number_commands.h"

#include <gtest/gtest.h>

#include "support/library_program.h"

namespace tessera {
namespace {

using test::ExpectAnswers;
using test::LibraryProgram;

TEST(NumberCommands, ArredondaTakesTiesToEvenInTheDigitsShown) {
  ExpectAnswers("Arredonda", {{"2.5,0", "2"},
                              {"3.5,0", "4"},
                              {"2.675,2", "2,68"},
                              {"1.005,2", "1"},
                              {"0-2.5,0", "-2"},
                              {"2.25+0,1", "2,2"},
                              {"1/3,5", "0,33333"},
                              {"1234.5678,2", "1234,57"},
                              {"7,40", "7"},
                              {"1/3,40", "0,333333333333333"},
                              {"1,0-1", "falha 5"},
                              {"\"x\",1", "falha 13"}});
}

TEST(NumberCommands, SignsAndIntegerParts) {
  ExpectAnswers("ValorInteiro",
                {{"0-1.5", "-2"}, {"1.9", "1"}, {"3000000000", "falha 6"}, {"\"\"", "falha 13"}});
  ExpectAnswers("ParteInteira", {{"0-1.5", "-1"}, {"1.9", "1"}, {"3000000000.5", "3000000000"}});
  ExpectAnswers("ValorAbsoluto", {{"0-1.5", "1,5"}, {"2", "2"}});
  ExpectAnswers("Sinal", {{"0-3", "-1"}, {"0", "0"}, {"0.1", "1"}});
}

TEST(NumberCommands, FunctionsOfAnalysisRefuseWhatTheyLack) {
  ExpectAnswers("RaizQuadrada", {{"2", "1,4142135623731"}, {"9", "3"}, {"0-1", "falha 5"}});
  ExpectAnswers("Logaritmo", {{"1", "0"}, {"0", "falha 5"}, {"0-1", "falha 5"}});
  ExpectAnswers("Antilogaritmo", {{"0", "1"}, {"1", "2,71828182845905"}, {"1000", "falha 6"}});
  ExpectAnswers("Seno", {{"0", "0"}, {"1", "0,841470984807897"}});
  ExpectAnswers("Cosseno", {{"0", "1"}});
  ExpectAnswers("Tangente", {{"1", "1,5574077246549"}});
  ExpectAnswers("Arcotangente", {{"1", "0,785398163397448"}});
}

TEST(NumberCommands, AleatorioReachesItsLimit) {
  LibraryProgram program;
  const auto drawn = [&](double next) {
    program.random.next = next;
    return program.Answer("Aleatorio", "10");
  };
  EXPECT_EQ(drawn(0), "0");
  EXPECT_EQ(drawn(0.25), "2");
  EXPECT_EQ(drawn(0.96), "10");
}

TEST(NumberCommands, ColoursAndHexadecimalDigits) {
  ExpectAnswers("RGB", {{"1,2,3", "197121"}, {"255,255,255", "16777215"}, {"0,0,99999", "falha 6"}});
  ExpectAnswers("Hexadecimal", {{"255", "\"FF\""},
                                {"0", "\"0\""},
                                {"0-1", "\"FFFFFFFF\""},
                                {"10.5", "\"A\""},
                                {"4294967296", "falha 6"}});
}

TEST(NumberCommands, BinaryDigitsOfLargeNumbersAreAllOnes) {
  ExpectAnswers("DecBin", {{"0", "00000000"},
                           {"5", "00000101"},
                           {"255", "11111111"},
                           {"300", "11111111"},
                           {"0-1", "00000000"},
                           {"40000", "falha 6"}});
  ExpectAnswers("BinDec", {{"\"00000000\"", "0"},
                           {"\"101\"", "5"},
                           {"\"1x1\"", "5"},
                           {"\"111111111111111\"", "32767"},
                           {"\"1000000000000000\"", "falha 6"},
                           {"\"00000000000000000000000000000000000000001\"", "1"}});
}

TEST(NumberCommands, ResultsGoOnAsNumbersInExpressions) {
  LibraryProgram program;
  EXPECT_EQ(program.Value("RaizQuadrada(2) * 2"), "2,8284271247462");
  EXPECT_EQ(program.Value("Seno(0) + 1"), "1");
  EXPECT_EQ(program.Value("RGB(1,1,1)"), "65793");
}

}  // namespace
}  // namespace tessera
