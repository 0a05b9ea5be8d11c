#include "windows/janela.h"

#include <gtest/gtest.h>

#include "support/console_window.h"
#include "support/core_program.h"

namespace tessera::test {

namespace {

using JanelaTest = ConsoleWindowTest;

}  // namespace

TEST_F(JanelaTest, StandsCentredInItsLooksAndIsShownBeforeTheFirstStatement) {
  Draw("Escreva 1\n");
  EXPECT_EQ(Window().Caption(), "Tessera - TESTE.TSC");
  EXPECT_TRUE(Window().Visible());
  EXPECT_TRUE(Window().Style().Titlebar);
  EXPECT_EQ(Window().Place().Width, 640 * 15);
  EXPECT_EQ(Window().Place().Height, 420 * 15 + 600);
  EXPECT_EQ(Window().Place().Left, (1920 * 15 - 9600) / 2);
  EXPECT_EQ(Window().Place().Top, (1080 * 15 - 6900) / 2);
  EXPECT_EQ(Window().Font.name, "Courier New");
  EXPECT_EQ(Windows().CurrentWindowName(), "Pai");
  EXPECT_EQ(Windows().FindWindow("pAI"), &Window());
  EXPECT_EQ(Windows().FindWindow(""), nullptr);
}

TEST_F(JanelaTest, BuiltinVariablesAreFilled) {
  program.Run(
      "Escreva Azul, \" \", Amarelo, \" \", AzulEscuro, \" \", AmareloEscuro\n"
      "Escreva TamLin, \" \", TamCol, \" \", AlturaTela, \" \", LarguraTela\n"
      "Escreva PastaPrograma, \" \", PastaTS, \" \", LinhaComando\n"
      "Escreva TotalFontes\n"
      "Var c Inteiro\nc = CorFundoPadrao\nEscreva c\n"
      "Var Azul Inteiro\nAzul = 5\nEscreva Azul\n");
  EXPECT_EQ(
      Printed(),
      "16711680 65535 7208960 28270\n14 8 77 240\n/programas/teste /programas um dois\n2\n-2147483633\n5\n");
}

TEST_F(JanelaTest, TheTextCursorMovesALineAtATimeAndPosicioneSetsIt) {
  Draw(
      "Posicione 2, 2,5\nEscreva \"a\"\nEscreva \"b\"\nEscreva \"t\", TituloJanela\nCls\nFonte Tamanho = "
      "30\n");
  EXPECT_EQ(Windows().PrintLinePixels, 4 * 14);
  EXPECT_EQ(Windows().PrintColumnPixels, 16) << "the second argument ends at its comma";
  EXPECT_EQ(Window().CurrentY, 4 * 14);
  EXPECT_EQ(Window().Caption(), "t");
  EXPECT_EQ(Window().Font.size, 30);
  program.Run("Imagem I, \"\", 1, 1, 9, 9\nImagem I.Escreva \"de \", \"dentro\", TituloJanela\n");
  EXPECT_EQ(Window().Caption(), "de dentro");
}

TEST_F(JanelaTest, ThousandsOfLinesAreNoFailure) {
  EXPECT_EQ(program.Run("Var i Inteiro\nEnquanto i < 3000\ni++\nEscreva i\nRepita\n"), 0);
  EXPECT_TRUE(Printed().ends_with("2999\n3000\n"));
}

TEST_F(JanelaTest, FonteSetsWhatItsFirstArgumentNamesOnTheWindowNamed) {
  Draw(
      "Fonte Nome = \"Arial\"\nFonte pai.Negrito = \"SIM\"\nFonte Italico = \"nao\"\n"
      "Fonte Pai.Cor = Vermelho\nFonte Outra.Tamanho = 99\nFonte tamanho = 50\n");
  EXPECT_EQ(Window().Font.name, "Arial");
  EXPECT_TRUE(Window().Font.bold);
  EXPECT_FALSE(Window().Font.italic);
  EXPECT_EQ(Window().ForeColor, 255);
  EXPECT_EQ(Window().Font.size, 10);
}

TEST_F(JanelaTest, ThatWordAnywhereInTheProgramKeepsTheWindowHidden) {
  program.Start("Escreva \"IniciaJanelaInvisivel\"\n", {}, "JanelaTransparente");
  EXPECT_FALSE(Window().Visible());
  EXPECT_FALSE(Window().Style().Titlebar);
}

TEST_F(JanelaTest, AProgramThatAsksForItHasNoFrame) {
  program.Run("Cls\n", "", "SemBorda");
  EXPECT_FALSE(Window().Style().Titlebar);
  EXPECT_TRUE(Window().Style().ControlBox);
}

// A surface larger than any screen fails where it is drawn on, before its memory is taken.
TEST_F(JanelaTest, AnImmenseWindowCanNotBeDrawnOn) {
  EXPECT_EQ(program.Run("Janela Tamanho = 3000, 6000\nPonto 1, 1, 255\nEscreva 1\n"), 1);
  EXPECT_EQ(Printed(), "");
  EXPECT_NE(err.str().find("Memória insuficiente"), std::string::npos) << err.str();
}

TEST_F(JanelaTest, AnEventWhoseVariableIsGoneIsNoFailureOfTheWaitingStatement) {
  in.str("clique\n");
  program.run.doors.NovaJanela = [](std::string_view) {};
  AtWord(program.run, "LePorta", [this](std::string_view) {
    program.run.variables.VarRemove("CliqueMouse", true);
    return Value();
  });
  EXPECT_EQ(program.Run("LePorta\nAguarde 0\nEscreva \"segue\"\n"), 0);
  EXPECT_EQ(Printed(), "segue\n");
}

}  // namespace tessera::test
