#include "commands/dialog_commands.h"

#include "support/console_window.h"

namespace tessera::test {

using DialogTest = ConsoleWindowTest;

TEST_F(DialogTest, EachDialogTakesALineAndWritesItsVariable) {
  in.str("/tmp/a b.txt\n\nnovo.txt\n255\nArial                         12 VerdadeiroFalso     \nLaser\n");
  Draw(
      "CaixaDialogo \"Abra\", \"Textos\", \"*.txt\", \"abrir\", \"\"\nEscreva Retorno\n"
      "CaixaDialogo \"Abra\", \"Textos\", \"*.txt\", \"Abrir\", \"\"\nEscreva Retorno\n"
      "CaixaDialogo \"Salve\", \"Textos\", \"*.txt\", \"SALVAR\", \"x.txt\"\nEscreva Retorno\n"
      "CaixaDialogo \"Cores\", \"\", \"\", \"COR\", \"\"\nEscreva ValorRetorno\n"
      "CaixaDialogo \"Letra\", \"\", \"\", \"FONTE\", \"\"\nEscreva Retorno\n"
      "CaixaDialogo \"Folha\", \"\", \"\", \"IMPRESSORA\", \"\"\nEscreva Retorno\n"
      "CaixaDialogo \"Cores\", \"\", \"\", \"COR\", \"\"\nEscreva Retorno\n"
      "CaixaDialogo \"Nada\", \"\", \"\", \"OUTRO\", \"\"\nEscreva Retorno\n");
  EXPECT_EQ(Printed(),
            "/tmp/a b.txt\nCANCELADO\nnovo.txt\n255\n"
            "Arial                         12 VerdadeiroFalso     \nOK\nCANCELADO\nCANCELADO\n");
  EXPECT_EQ(program.chosenPrinter.name, "Laser");
  EXPECT_EQ(err.str(),
            "[dialogo] ABRIR Abra\n[dialogo] ABRIR Abra\n[dialogo] SALVAR Salve\n[dialogo] COR Cores\n"
            "[dialogo] FONTE Letra\n[dialogo] IMPRESSORA Folha\n[dialogo] COR Cores\n");
}

TEST_F(DialogTest, ACancelledPrinterDialogKeepsThePrinterChosenBefore) {
  in.str("Laser\n\n");
  Draw(
      "CaixaDialogo \"Folha\", \"\", \"\", \"IMPRESSORA\", \"\"\n"
      "CaixaDialogo \"Folha\", \"\", \"\", \"IMPRESSORA\", \"\"\nEscreva Retorno\n");
  EXPECT_EQ(Printed(), "CANCELADO\n");
  EXPECT_EQ(program.chosenPrinter.name, "Laser");
}

TEST_F(DialogTest, FontsAreListedByIndex) {
  Draw("Escreva Fontes(0), \" \", Fontes(TotalFontes)\n");
  EXPECT_EQ(Printed(), "Arial Times New Roman\n");
  const auto failure = Guard([&] { program.commands.CommandCall("FONTES", "3"); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 9);
}

TEST(FontRecord, ColumnsAreFixedAndAShortRecordLacksWhatItDoesNotHold) {
  const ChosenFont font{.name = "Um nome de fonte com mais de trinta letras", .size = 9, .italic = true};
  const std::string record = FontRecord(font);
  EXPECT_EQ(record, "Um nome de fonte com mais de t9  Falso     Verdadeiro");
  const ChosenFont read = FontOfRecord(record);
  EXPECT_EQ(read.name, "Um nome de fonte com mais de t");
  EXPECT_EQ(read.size, 9);
  EXPECT_FALSE(read.bold);
  EXPECT_TRUE(read.italic);
  EXPECT_EQ(FontOfRecord("Arial").size, 0);
}

}  // namespace tessera::test
