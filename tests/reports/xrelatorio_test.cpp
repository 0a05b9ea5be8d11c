// The page engine over a painter of typewriter letters: where its operations stand.
#include "reports/xrelatorio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "platform/failure.h"
#include "support/console_window.h"
#include "support/core_program.h"
#include "support/typewriter.h"

namespace tessera::reports {

namespace {

using Kind = Page::Kind;
using test::Typewriter;

class XRelatorioTest : public testing::Test {
 protected:
  void Begin(std::string_view text, PageRange range = {}) { report.Config(text, range); }
  // The operations of the last sheet, as "TEXT x,y text" and the like.
  std::vector<std::string> Printed() {
    report.Finaliza();
    std::vector<std::string> lines;
    const auto place = [](float x, float y) {
      return " " + std::to_string(int(x)) + "," + std::to_string(int(y));
    };
    for (const Page::Operation& operation : painter.sheets.back().Operations()) {
      if (operation.kind == Kind::Text) {
        lines.push_back("text" + place(operation.x1, operation.y1) + " " +
                        std::string(painter.sheets.back().TextOf(operation)));
      } else {
        const std::string word = operation.kind == Kind::Box ? "box" : "line";
        lines.push_back(word + place(operation.x1, operation.y1) + place(operation.x2, operation.y2) + " " +
                        std::to_string(operation.colour));
      }
    }
    return lines;
  }
  long FailureOf(const std::function<void()>& act) {
    const auto failure = Guard(act);
    return failure ? failure->number() : 0;
  }

  test::CoreProgram program;
  Typewriter painter;
  TextMeasures measures{painter};
  ReportHost host;
  ChosenPrinter chosen;
  Printer printer{program.run, measures, painter, host, chosen, ""};
  SharedPictures pictures{program.run, NoPictureCodec};
  XRelatorio report{program.run, painter, measures, printer, pictures};
};

using Lines = std::vector<std::string>;

TEST_F(XRelatorioTest, ACellIsDrawnGroundTextRules) {
  Begin("saida:x, margemesq:600;margemsup:500");
  report.Col(0, "tam:10 align:dir cortab:255 tfont:10");
  report.Col(1, "TAM:10 TABHOR:FALSE ALIGN:CEN");
  report.Add("ab", 7, 65280);
  report.Add("abc", 0, 0xFFFFFF);
  // Right: 1200 - 100 - 200 before the text; its height is 200 of a line of 240.
  EXPECT_EQ(Printed(),
            (Lines{"box 600,500 1800,740 65280", "text 1550,520 ab", "line 600,500 600,740 255",
                   "line 1800,500 1800,740 255", "line 600,500 1800,500 255", "line 600,740 1800,740 255",
                   "text 2330,540 abc", "line 1800,500 1800,740 0", "line 3000,500 3000,740 0"}));
}

TEST_F(XRelatorioTest, KeysAreFoundAnywhereAndTheFirstOneCounts) {
  printer.Font.italic = true;
  Begin("XSAIDA:,MARGEMESQ:-20,5MARGEMESQ:900 MARGEMSUP: 7");
  EXPECT_FALSE(printer.Font.italic) << "what was printed before has its own font";
  report.Size("TAMLIN:300TAMPAG:x");
  report.Col(0, "BOLD:TRUEX NTAM:1,TAM:9;ALIGN:ESQUERDA;TABVER:true TABHOR:");
  report.Add("ab", 0, 0xFFFFFF);
  report.NovaLinha();
  // An unknown alignment is the left one, no page height is 0, and the top margin's blank ends its value.
  EXPECT_TRUE(report.TestaFimPag());
  EXPECT_EQ(Printed(), (Lines{"text 30,70 a", "line -20,0 -20,300 0", "line 100,0 100,300 0"}));
}

// Whatever the one before left behind: its line, its columns, and a page that was not finished.
TEST_F(XRelatorioTest, ASecondReportIsLikeTheFirst) {
  for (const bool isVideo : {true, false}) {
    Begin(isVideo ? "SAIDA:VIDEO" : "");
    report.Col(0, "TAM:5 BOLD:TRUE");
    report.Size("TAMLIN:900 TAMPAG:100");
    report.Imprime("um", 0);
    report.NovaLinha();
    Begin(isVideo ? "SAIDA:VIDEO" : "");
    report.NovaLinha();
    report.Imprime("dois", 0);
    EXPECT_FALSE(report.TestaFimPag());
    report.Finaliza();
    const Page& page = isVideo ? report.Pages().at(0) : painter.sheets.back();
    const auto text = std::ranges::find_if(
        page.Operations(), [&](const auto& operation) { return page.TextOf(operation) == "dois"; });
    ASSERT_NE(text, page.Operations().end());
    EXPECT_FALSE(page.FaceOf(*text).bold);
    EXPECT_EQ(text->y1, 240 + 25);
  }
}

TEST_F(XRelatorioTest, ACutTextKeepsTheCharacterThatPassesTheWidth) {
  Begin("");
  report.Col(0, "TAM:5 TABVER:FALSE TABHOR:FALSE");
  report.Col(1, "TABVER:FALSE TABHOR:FALSE");
  report.Add("1234567", 0, 0xFFFFFF);
  report.Add("abc", 0, 0xFFFFFF);
  EXPECT_EQ(report.MidX("", -1), "");
  EXPECT_EQ(report.MidX("12345", 400), "12345");
  EXPECT_EQ(report.MidX("123456", 400), "123456");
  EXPECT_EQ(report.MidX("1234567", 400), "123456");
  // The second column is 20 twips wide, and holds one character.
  EXPECT_EQ(Printed(), (Lines{"text 50,40 123456", "text 650,40 a"}));
  // The fast cut is that of adding up by `TextWidth`.
  printer.Font.size = 8.3;
  const std::string text = "uma linha\r\ne outra, mais comprida\ne o fim";
  for (double width = -50; width < 2500; width += 77) {
    std::string plain;
    for (const char character : text) {
      plain += character;
      if (printer.TextWidth(plain) > width) break;
    }
    EXPECT_EQ(printer.MidX(text, width), plain) << width;
  }
}

TEST_F(XRelatorioTest, LinesAndFreeTextsStandOnTheLine) {
  Begin("MARGEMESQ:100 MARGEMSUP:200");
  report.Size("TamLin:300");
  report.Col(0, "TFONT:12 BOLD:TRUE");
  report.NovaLinha();
  report.Linha(10, 500, 255, 40);
  report.Imprime("livre", 60);
  EXPECT_EQ(printer.Font, (FontFace{.name = "MS Sans Serif", .size = 12, .bold = true}));
  const auto picture = std::make_shared<Picture>(Picture{.raster = Raster(Size{4, 20})});
  report.Imagem(picture, 30, false);
  report.ImgPic(picture, 30, true);
  report.Imprime("abaixo", 0);
  EXPECT_EQ(Printed(), (Lines{"line 110,485 600,525 255", "text 160,525 livre", "line 130,500 0,0 0",
                              "line 130,500 0,0 0", "text 100,825 abaixo"}));
}

TEST_F(XRelatorioTest, ThePrinterPassCountsAllPagesAndPrintsThoseOfTheRange) {
  const auto sheetsOf = [&](PageRange range) {
    painter.sheets.clear();
    Begin("SAIDA:PAPEL", range);
    for (int page = 1; page <= 4; ++page) {
      report.Imprime(std::to_string(page), 0);
      if (page < 4) report.NovaPagina();
    }
    report.Finaliza();
    std::string sheets;
    for (const Page& sheet : painter.sheets) {
      sheets += "[";
      for (const auto& operation : sheet.Operations()) sheets += sheet.TextOf(operation);
      sheets += "]";
    }
    return sheets;
  };
  EXPECT_EQ(sheetsOf({1, 9999}), "[1][2][3][4]");
  EXPECT_EQ(sheetsOf({2, 3}), "[2][3][]") << "a page in the range opens the next sheet";
  EXPECT_EQ(sheetsOf({4, 4}), "[4]");
  EXPECT_EQ(sheetsOf({5, 9}), "") << "nothing is sent";
  EXPECT_EQ(sheetsOf({3, 2}), "");
}

TEST_F(XRelatorioTest, LimitsFail) {
  EXPECT_EQ(FailureOf([&] {
              report.NovaPagina();
              report.Add("x", 0, 0);
            }),
            91);
  Begin("");
  EXPECT_EQ(FailureOf([&] { report.Col(50, "TAM:3"); }), 0);
  EXPECT_EQ(FailureOf([&] { report.Col(51, ""); }), 9);
  EXPECT_EQ(FailureOf([&] { report.Col(-1, ""); }), 9);
  EXPECT_EQ(FailureOf([&] { report.Col(0, "TAM:273"); }), 0);
  EXPECT_EQ(FailureOf([&] { report.Col(0, "TAM:274"); }), 6) << "32,880 twips";
  Begin("");
  for (int cell = 0; cell < 51; ++cell) report.Add("", 0, 0xFFFFFF);
  EXPECT_EQ(FailureOf([&] { report.Add("", 0, 0xFFFFFF); }), 9) << "behind the last column";
  report.Finaliza();
  Begin("MARGEMESQ:-32768");
  EXPECT_EQ(FailureOf([&] { Begin("MARGEMESQ:32768"); }), 6);
  // The second use: what the first one set is gone, but the margins and column 50.
  Begin("");
  report.Add("x", 0, 0xFFFFFF);
  EXPECT_EQ(Printed().front(), "text -32718,40 x");
}

class PaperTest : public test::ConsoleWindowTest {};

TEST_F(PaperTest, WithoutItsPartOneBoxSaysWhatToInstall) {
  program.Run("Rel.Config \"SAIDA:VIDEO\"\nRel.Fim\nImp.Escreva \"x\"\nEscreva \"fim\"\n");
  EXPECT_EQ(Printed(), "fim\n");
  EXPECT_EQ(err.str(), "[critico] Instale o pacote tessera-paper\n");
}

}  // namespace

}  // namespace tessera::reports
