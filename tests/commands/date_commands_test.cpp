#include "commands/date_commands.h"

#include <gtest/gtest.h>

#include "support/library_program.h"

namespace tessera {
namespace {

using test::ExpectAnswers;
using test::ExpectValues;
using test::LibraryProgram;

TEST(DateCommands, TodayAndNowComeFromTheClock) {
  LibraryProgram program;
  using namespace std::chrono;
  program.clock.now = local_days{2026y / November / 7} + 23h + 4min + 5s + 999ms;
  EXPECT_EQ(program.Answer("Data", ""), "\"07/11/2026\"");
  EXPECT_EQ(program.Answer("Hora", ""), "\"23:04:05\"");
  EXPECT_EQ(program.Answer("Dia", ""), "7");
  EXPECT_EQ(program.Answer("Mes", ""), "11");
  EXPECT_EQ(program.Answer("Ano", ""), "2026");
  EXPECT_EQ(program.Answer("Dia", "\"\""), "7");
}

TEST(DateCommands, PartsOfADateAreNotQuoted) {
  ExpectAnswers("Dia", {{"\"05/03/2009\"", "5"}, {"\"5-3-09 10:00\"", "5"}, {"39877", "5"}});
  ExpectAnswers("Mes", {{"\"05/03/2009\"", "3"}});
  ExpectAnswers("Ano", {{"\"05/03/29\"", "2029"}, {"\"05/03/30\"", "1930"}});
}

TEST(DateCommands, PartsOfABadDateAnswerTheFailuresDescription) {
  ExpectAnswers("Dia", {{"\"31/02/2009\"", "\"Tipos incompatíveis\""},
                        {"\"abc\"", "\"Tipos incompatíveis\""},
                        {"99999999", "\"Estouro\""}});
  ExpectAnswers("DiaSemana", {{"\"31/02/2009\"", "falha 13"}});
}

TEST(DateCommands, WeekdaysHaveTheirNames) {
  ExpectAnswers("DiaSemana", {{"\"07/11/2026\"", "\"Sábado\""},
                              {"\"08/11/2026\"", "\"Domingo\""},
                              {"\"10/11/2026\"", "\"Terça-Feira\""},
                              {"1", "\"Domingo\""}});
}

TEST(DateCommands, DataAdicionaKnowsNineUnits) {
  ExpectAnswers("DataAdiciona", {{R"("SEGUNDO",61,"31/12/2025 23:59:00")", "\"01/01/2026 00:00:01\""},
                                 {R"("MINUTO",90,"01/01/2025")", "\"01/01/2025 01:30:00\""},
                                 {R"("hora",0-1,"01/01/2025")", "\"31/12/2024 23:00:00\""},
                                 {R"("SEMANA",2,"20/02/2024")", "\"05/03/2024\""},
                                 {R"("DIASEMANA",1,"06/11/2026")", "\"07/11/2026\""},
                                 {R"("DIA",30,"31/01/2025")", "\"02/03/2025\""},
                                 {R"("DIAANO",1,"31/12/2024")", "\"01/01/2025\""},
                                 {R"("MES",1,"31/01/2025")", "\"28/02/2025\""},
                                 {R"("ANO",1,"29/02/2024")", "\"28/02/2025\""},
                                 {R"("HORA",1,"10:30")", "\"11:30:00\""},
                                 {R"("DIA",1,39877)", "\"06/03/2009\""},
                                 {R"("SECULO",1,"01/01/2025")", "falha 5"},
                                 {R"("ANO",9000,"01/01/2025")", "falha 5"},
                                 {R"("SEMANA",2147483647,"01/01/2025")", "falha 5"},
                                 {R"("DIA",1,"ontem")", "falha 13"}});
}

TEST(DateCommands, DataDifCountsTheBordersOfAUnit) {
  ExpectAnswers("DataDif", {{R"("SEGUNDO","01/01/2025","01/01/2025 00:01:01")", "\"61\""},
                            {R"("MINUTO","10:00:59","10:01:00")", "\"1\""},
                            {R"("HORA","10:59","12:01")", "\"2\""},
                            {R"("DIA","01/01/2025 23:00","02/01/2025 01:00")", "\"1\""},
                            {R"("DIAANO","01/03/2024","01/01/2024")", "\"-60\""},
                            {R"("SEMANA","07/11/2026","08/11/2026")", "\"1\""},
                            {R"("SEMANA","08/11/2026","14/11/2026")", "\"0\""},
                            {R"("SEMANA","08/11/2026","07/11/2026")", "\"-1\""},
                            {R"("DIASEMANA","07/11/2026","13/11/2026")", "\"0\""},
                            {R"("DIASEMANA","07/11/2026","14/11/2026")", "\"1\""},
                            {R"("DIASEMANA","14/11/2026","01/11/2026")", "\"-1\""},
                            {R"("MES","31/01/2025","01/02/2025")", "\"1\""},
                            {R"("ANO","31/12/2024","01/01/2025")", "\"1\""},
                            {R"("SEGUNDO","01/01/1000","01/01/2025")", "falha 6"},
                            {R"("X","01/01/2025","01/01/2025")", "falha 5"}});
}

TEST(DateCommands, ConverteDataRewritesADate) {
  ExpectAnswers("ConverteData", {{R"("5/3/09","DD/MM/AAAA")", "\"05/03/2009\""},
                                 {R"("5/3/2009","AAAA-MM-DD")", "\"2009-03-05\""},
                                 {R"("05/03/2009","d/m/aa")", "\"5/3/09\""},
                                 {R"("15/12/2009","D/M/AA")", "\"15/12/09\""},
                                 {R"("15/12/2009","DDMMAAAA")", "\"15122009\""},
                                 {R"("5/3/7","AA/MM/DD")", "\"07/03/05\""},
                                 {R"("5/3/2009","MM.AAAA")", "\"03.2009\""},
                                 {R"("abc","DD/MM")", "falha 13"},
                                 {R"("5/x/2009","DD/MM")", "falha 13"},
                                 {R"("5/3","DD/MM")", "falha 13"}});
}

TEST(DateCommands, ConverteDataWritesShortYearsAsTwoThousand) {
  ExpectAnswers("ConverteData", {{R"("5/3/99","DD/MM/AAAA")", "\"05/03/2099\""}});
}

TEST(DateCommands, ConverteDataKnowsASingleLetterInFrontOfASlashAlone) {
  ExpectAnswers("ConverteData",
                {{R"("5/3/2009","D-M-AA")", "\"D-M-09\""}, {R"("5/3/2009","AA-MM-D")", "\"AA-03-5\""}});
}

TEST(DateCommands, InverteDataGoesBothWays) {
  ExpectValues({{R"(InverteData("05/03/2009"))", "20090305"},
                {R"(InverteData("20090305"))", "05/03/2009"},
                {R"(InverteData(""))", ""},
                {R"(InverteData(InverteData("05/03/2009")))", "05/03/2009"}});
}

}  // namespace
}  // namespace tessera
