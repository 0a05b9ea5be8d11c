#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "support/console_window.h"

namespace tessera::test {

namespace {

constexpr Colour kGround = 15790320;
constexpr Colour kRed = 255;
constexpr Colour kBlue = 16711680;
constexpr Colour kGreen = 65280;

using DrawingTest = ConsoleWindowTest;

}  // namespace

TEST_F(DrawingTest, EachFigureStandsOnItsPixels) {
  struct Row {
    const char* source;
    std::vector<std::tuple<int, int, Colour>> pixels;
  };
  for (const Row& row : {
           // Line 7.5 is pixel 105, column 12.25 is pixel 98, and the radius of 2.5 columns 20 pixels both
           // ways.
           Row{"Circulo 15/2, 49/4, 5/2, Vermelho",
               {{98, 105, kRed}, {78, 105, kRed}, {77, 105, kGround}, {98, 125, kRed}, {98, 126, kGround}}},
           Row{"LinhaReta 0, 0, 10, 10, Azul",
               {{0, 0, kBlue}, {40, 70, kBlue}, {80, 140, kBlue}, {81, 141, kGround}}},
           // To the opposite corner, and an outline.
           Row{"Retangulo 10, 10, 1, 2, Vermelho",
               {{16, 14, kRed}, {80, 140, kRed}, {81, 140, kGround}, {40, 70, kGround}}},
           // Behind a circle it is filled in the circle's colour until `Pinte`.
           Row{"Circulo 25, 60, 1, Azul\nRetangulo 1, 1, 5, 5, Vermelho\nPinte 20, 20, Verde\n"
               "Retangulo 1, 11, 5, 15, Vermelho",
               {{8, 14, kRed}, {20, 40, kBlue}, {100, 40, kGreen}}},
           Row{"Retangulo 1, 1, 5, 5, Vermelho\nPinte 2, 2, Azul",
               {{9, 15, kBlue}, {39, 69, kBlue}, {8, 14, kRed}, {41, 15, kGround}}},
           Row{"Pinte 3, 3, Azul", {{0, 0, kBlue}, {639, 0, kBlue}, {0, 419, kBlue}, {639, 419, kBlue}}},
       }) {
    HostedProgram fresh(host.host(), host);
    ASSERT_EQ(fresh.Start(row.source), RunOutcome::Ended) << row.source;
    for (const auto& [x, y, colour] : row.pixels) {
      EXPECT_EQ(fresh.janela.form().Point({x, y}), colour) << row.source << " " << x << " " << y;
    }
  }
}

TEST_F(DrawingTest, APointIsAsWideAsThePen) {
  Draw("Ponto 1, 1, Vermelho\n");
  EXPECT_EQ(At(8, 14), kRed);
  EXPECT_EQ(At(9, 14), kGround);
  Window().DrawWidth = 3;
  program.commands.CommandCall("Ponto", "5, 5, 255");
  EXPECT_EQ(At(39, 69), kRed);
  EXPECT_EQ(At(41, 71), kRed);
  EXPECT_EQ(At(42, 70), kGround);
}

TEST_F(DrawingTest, ReadingAPointRoundsLineAndColumnFirst) {
  Draw(
      "Ponto 2, 4, Vermelho\nEscreva LePonto(2, 4)\nEscreva LePonto(3/2, 7/2)\nEscreva LePonto(5/2, 9/2)\n"
      "Escreva LePonto(0, 0)\nEscreva LePonto(0, 80)\nEscreva LePonto(0-1, 0)\n");
  EXPECT_EQ(out.str(), "255\n255\n255\n15790320\n-1\n-1\n");
}

TEST_F(DrawingTest, ClearingErasesDrawingsAndALargerWindowKeepsThem) {
  Draw("LinhaReta 0, 0, 0, 79, Azul\n");
  Form& window = Window();
  window.Move({0, 0, 12000, 9000});
  program.commands.CommandCall("LinhaReta", "1, 0, 1, 99, 255");
  EXPECT_EQ(At(600, 0), kBlue);
  EXPECT_EQ(At(700, 0), kGround);
  EXPECT_EQ(At(700, 14), kRed);
  window.Cls();
  EXPECT_EQ(At(600, 0), kGround);
}

TEST_F(DrawingTest, AnOddFormIsDrawnAsFarAsItIsSeenAndAnImpossibleOneFails) {
  Draw("LinhaReta 0-1000000, 0-1000000, 1000000, 1000000, Azul\nCirculo 0, 0, 9999999, Vermelho\n");
  EXPECT_EQ(At(639, 419), kRed);
  for (const auto& [command, number] : {std::pair{"CIRCULO 1, 1, 0-2, 0", 5L},
                                        {"LINHARETA 999999999, 0, 0, 0, 0", 6L},
                                        {"PONTO 1, 1, \"cor\"", 13L}}) {
    const std::string_view text = command;
    const std::size_t blank = text.find(' ');
    const auto failure =
        Guard([&] { program.commands.CommandCall(text.substr(0, blank), text.substr(blank + 1)); });
    ASSERT_TRUE(failure) << command;
    EXPECT_EQ(failure->number(), number) << command;
  }
}

TEST_F(DrawingTest, AGradientRunsFromTheFirstColourToTheSecondAndIsRepainted) {
  Draw("Gradiente Preto, Branco\n");
  EXPECT_EQ(At(5, 0), 0);
  EXPECT_EQ(At(5, 419), 16777215);
  int last = -1;
  for (int y = 0; y < 420; ++y) {
    const Colour grey = At(0, y);
    EXPECT_EQ(grey, At(639, y));
    EXPECT_EQ(grey & 0xFF, grey >> 16 & 0xFF);
    EXPECT_GE(grey & 0xFF, last);
    last = grey & 0xFF;
  }
  Form& window = Window();
  EXPECT_TRUE(window.GrdAtivo);
  window.Cls();
  program.commands.CommandCall("GRADIENTE", "");
  EXPECT_EQ(At(5, 419), 16777215) << "in the colours that it has";
  program.commands.CommandCall("GRADIENTE", "255, 255");
  EXPECT_EQ(At(639, 200), kRed) << "two like colours are one bar";
}

TEST_F(DrawingTest, AResizeRepaintsTheGradientAndAnEventWithoutOneKeepsWhatIsDrawn) {
  in.str("redim 28 80\nredim 40 90\n");
  Draw("Gradiente Preto, Branco\nLinhaReta 0, 0, 0, 79, Azul\nAguarde 0\n");
  EXPECT_NE(At(100, 0), kBlue);
  const int height = static_cast<int>(Window().ScaleHeight());
  EXPECT_EQ(At(5, height - 1), 16777215);
  program.commands.CommandCall("LinhaReta", "0, 0, 0, 79, 16711680");
  Window().Grd.Repaint(Window());
  EXPECT_EQ(At(100, 0), kBlue);
}

}  // namespace tessera::test
