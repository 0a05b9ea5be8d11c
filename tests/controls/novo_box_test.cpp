#include "controls/novo_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "text/one_based.h"

namespace tessera {
namespace {

constexpr int kCharacter = 100;  // twips of each character

int MeasureText(std::string_view text, const CellAttributes&) {
  return static_cast<int>(text.size()) * kCharacter;
}

// A title of 300, four rows of 200, two columns of ten and five text columns; colours 1 on 2, cursor 3 on 4.
struct NovoBoxTest : testing::Test {
  NovoBoxTest() : box({3000, 1100}, {300, 200, 250}, MeasureText) {
    box.Config({1, 2, "Tahoma", 10, false}, 3, 4);
    box.Titulo("Nome", 10, NovoBox::Align::kLeft, false);
    box.Titulo("Preço"_w, 5, NovoBox::Align::kRight, true);
    box.Ativa(false);
  }
  void Fill(const std::vector<std::pair<std::string_view, std::string_view>>& rows) {
    for (const auto& [name, price] : rows) {
      box.Add(name);
      box.Add(price);
      box.BoxNew();
    }
    box.AddEnd();
  }
  void FillNumbers(int count) {
    for (int row = 0; row < count; ++row) {
      box.Add("r" + std::to_string(row));
      box.BoxNew();
    }
    box.AddEnd();
  }
  std::string ColumnText(int column) {
    std::string texts;
    for (std::int32_t row = 0; row < box.LinVet(); ++row) texts += box.LeVetor(row, column) + " ";
    return texts;
  }
  NovoBox box;
};

TEST_F(NovoBoxTest, AnEmptyGridReadsAsEmptyText) {
  EXPECT_EQ(box.TotalLinhas(), 4);
  EXPECT_EQ(box.ListCount(), 0);
  EXPECT_EQ(box.LeVetor(0, 0) + box.LeVetor(-1, 9) + box.LeCelula(0, 0) + box.LeCelula(9, 9) + box.List(0),
            "");
  EXPECT_FALSE(box.KeyDown(40));
  EXPECT_FALSE(box.Selected(0));
  EXPECT_EQ(box.LinBoxRef(), 0);
}

TEST(NovoBox, AGridWithoutColumnsOrWithoutHeightHasNoRows) {
  for (const int cell : {200, 0}) {
    NovoBox box({3000, 1100}, {300, cell, 250}, MeasureText);
    if (cell == 0) box.Titulo("Nome", 10, NovoBox::Align::kLeft, false);
    box.Ativa(false);
    EXPECT_EQ(box.TotalLinhas(), 0) << cell;
  }
}

TEST_F(NovoBoxTest, ACellTooManyLeavesItsRowIntact) {
  EXPECT_TRUE(box.Add("a"));
  EXPECT_TRUE(box.Add("1"));
  EXPECT_FALSE(box.Add("x"));
  box.BoxNew();
  EXPECT_TRUE(box.Add("b"));
  box.BoxNew();
  EXPECT_EQ(ColumnText(0) + ColumnText(1), "a b 1  ");
  EXPECT_EQ(box.ListCount(), 2);
}

TEST_F(NovoBoxTest, TheRowUnderConstructionIsNotReadYet) {
  box.Add("a");
  EXPECT_EQ(box.LeVetor(0, 0), "");
  box.Selected(0);
  EXPECT_FALSE(box.HasCursor());
  box.BoxNew();
  EXPECT_EQ(box.LeVetor(0, 0), "a");
}

TEST_F(NovoBoxTest, TheFiftyFirstColumnIsRefused) {
  for (int column = 2; column < 50; ++column) EXPECT_TRUE(box.Titulo("", 1, NovoBox::Align::kLeft, false));
  EXPECT_FALSE(box.Titulo("", 1, NovoBox::Align::kLeft, false));
  box.Ativa(false);
  EXPECT_LE(box.TotalCelulas(), NovoBox::kMaxCells);
}

TEST_F(NovoBoxTest, ThePoolEndsBeforeAHalfRowAndAt200Cells) {
  struct {
    int height;
    bool fixedHeight;
    int rows;
  } constexpr kCases[] = {{1299, false, 4}, {1300, false, 5}, {1374, true, 4}, {99999, false, 100}};
  for (const auto& c : kCases) {
    NovoBox tall({3000, c.height}, {300, 200, 250}, MeasureText);
    tall.Titulo("a", 5, NovoBox::Align::kLeft, false);
    tall.Titulo("b", 5, NovoBox::Align::kLeft, false);
    tall.Ativa(c.fixedHeight);
    EXPECT_EQ(tall.TotalLinhas(), c.rows) << c.height;
    EXPECT_EQ(tall.LinVet(), 0);
    tall.Titulo("c", 5, NovoBox::Align::kLeft, false);
    EXPECT_EQ(tall.TotalLinhas(), std::min(c.rows, 66)) << c.height;
  }
  box.Resize({3000, 1500}, {300, 100, 250});
  EXPECT_EQ(box.TotalLinhas(), 4);
  box.Ativa(false);
  EXPECT_EQ(box.TotalLinhas(), 12);
  NovoBox narrow({1000, 1100}, {300, 200, 250}, MeasureText);
  narrow.Titulo("a", 20, NovoBox::Align::kLeft, false);
  narrow.Ativa(false);
  EXPECT_TRUE(narrow.ShowsHorizontalBar());
  EXPECT_EQ(narrow.TotalLinhas(), 2);
  narrow.BarraHorizontal().Step(1);
  EXPECT_EQ(narrow.BarraHorizontal().Value(), 400);
  narrow.Ativa(false);
  EXPECT_EQ(narrow.BarraHorizontal().Value(), 0);
  narrow.Resize({9000, 1100}, {300, 200, 250});
  EXPECT_GT(narrow.BarraHorizontal().Max(), 0);
  narrow.Ativa(false);
  EXPECT_EQ(narrow.BarraHorizontal().Max(), 0);
}

TEST_F(NovoBoxTest, CutsATextToItsCellWithDots) {
  Fill({{"Exatos doze", "12345"}, {"Doze letras!", "1234567"}, {"Longo demais para ela", ""}});
  EXPECT_EQ(box.LeCelula(0, 0), "Exatos doze");
  EXPECT_EQ(box.LeCelula(1, 0), "Doze letras!");
  EXPECT_EQ(box.LeCelula(2, 0), "Longo dem...");
  EXPECT_EQ(box.LeCelula(1, 1), "123...");
  EXPECT_EQ(box.LeVetor(2, 0), "Longo demais para ela");
  NovoBox wide({6001, 1100}, {300, 200, 250}, MeasureText);
  EXPECT_EQ(wide.FitText("0123456789", 1150, {}), "0123456789");
  EXPECT_EQ(wide.FitText("0123456789", 1149, {}), "012345...");
}

TEST_F(NovoBoxTest, HalvingCutsWhereOneCharacterAtATimeWould) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    std::string text(random() % 40, ' ');
    for (char& c : text) c = random() % 4 == 0 ? ' ' : 'x';
    const int width = static_cast<int>(random() % 4000);
    std::string plain = text;
    for (std::size_t length = text.size(); MeasureText(plain, {}) > width && length-- > 0;) {
      plain = std::string(Trim(std::string_view(text).substr(0, length))) + "...";
    }
    EXPECT_EQ(box.FitText(text, width, {}), plain) << "[" << text << "] " << width;
  }
}

TEST_F(NovoBoxTest, KeysMoveTheCursorAndThenThePage) {
  FillNumbers(10);
  struct {
    int code;
    int firstRow;
    int cursor;
  } constexpr kSteps[] = {{40, 0, 1}, {40, 0, 2}, {40, 0, 3}, {40, 1, 3}, {34, 5, 3}, {34, 6, 3}, {40, 6, 3},
                          {38, 6, 2}, {33, 2, 2}, {33, 0, 2}, {38, 0, 1}, {38, 0, 0}, {38, 0, 0}, {65, 0, 0}};
  for (const auto& step : kSteps) {
    EXPECT_TRUE(box.KeyDown(step.code));
    EXPECT_EQ(box.LinIniVet(), step.firstRow) << step.code;
    EXPECT_EQ(box.LinBoxRef(), step.cursor) << step.code;
    EXPECT_EQ(box.ListIndex(), step.firstRow + step.cursor);
    EXPECT_EQ(box.LeCelula(0, 0), "r" + std::to_string(step.firstRow));
    EXPECT_EQ(box.Pool()[static_cast<std::size_t>(step.cursor) * 2].attributes.back, 4);
  }
}

TEST_F(NovoBoxTest, AListShorterThanAPageMovesItsCursorOnly) {
  FillNumbers(2);
  EXPECT_EQ(box.BarraVertical().Max(), 0);
  for (const int code : {40, 40, 34, 33}) box.KeyDown(code);
  EXPECT_EQ(box.LinIniVet(), 0);
  EXPECT_EQ(box.LinVetRef(), 1);
  EXPECT_EQ(box.LeCelula(2, 0), "");
}

TEST_F(NovoBoxTest, TheCursorRowAloneHasTheSelectedColours) {
  FillNumbers(10);
  EXPECT_TRUE(box.Selected(8));
  EXPECT_EQ(box.LinVetRef(), 8);
  EXPECT_TRUE(box.ClickCelula(3));
  EXPECT_EQ(box.LinVetRef(), box.LinIniVet() + 1);
  EXPECT_EQ(box.ColBoxRef(), 1);
  for (int cell = 0; cell < box.TotalCelulas(); ++cell) {
    EXPECT_EQ(box.Pool()[static_cast<std::size_t>(cell)].attributes.fore, cell / 2 == 1 ? 3 : 1);
  }
  box.Ativa(false);
  EXPECT_EQ(box.ColBoxRef(), 0);
  EXPECT_EQ(box.ListCount(), 0);
}

// The row that is still being written shows none.
TEST_F(NovoBoxTest, TheCursorShowsOnTheRowThatWasChosen) {
  FillNumbers(8);
  box.Add("aberta");
  const auto chosen = [&](std::int32_t index) {
    EXPECT_TRUE(box.Selected(index));
    std::string rows;
    for (std::size_t row = 0; row < 4; ++row) rows += box.Pool()[row * 2].attributes.back == 4 ? '#' : '.';
    return rows;
  };
  EXPECT_EQ(chosen(0), "#...");
  EXPECT_FALSE(box.SelBox(4));
  EXPECT_EQ(box.LinIniVet(), 0);
  EXPECT_EQ(chosen(7), "...#");
  EXPECT_EQ(chosen(4), "#...");
  box.Refresh();
  box.BarraVertical().SetValue(5);
  EXPECT_EQ(chosen(8), "....");
}

TEST_F(NovoBoxTest, TheBarMovesThePage) {
  FillNumbers(10);
  EXPECT_EQ(box.BarraVertical().Max(), 6);
  box.BarraVertical().SetValue(6);
  EXPECT_EQ(box.LeCelula(3, 0), "r9");
  EXPECT_EQ(box.LeVetCel(3).row, 7);
  box.ClearVet(true);
  EXPECT_EQ(box.BarraVertical().Value(), 0);
  EXPECT_EQ(box.BarraVertical().Max(), 100);
  EXPECT_EQ(box.LinVet(), 0);
}

TEST_F(NovoBoxTest, ATitleSortsUpwardsAndThenDownwards) {
  Fill({{"b", "10"}, {"a", "9,5"}, {"Ç"_w, "1"}, {"b", "2"}, {"B", "x"}});
  box.ClickTitle(0);
  EXPECT_EQ(ColumnText(0), "B a b b Ç "_w);
  EXPECT_EQ(ColumnText(1), "x 9,5 10 2 1 ");
  EXPECT_EQ(box.List(4), "Ç"_w);
  box.ClickTitle(0);
  EXPECT_EQ(ColumnText(0), "Ç b b a B "_w);
  EXPECT_EQ(ColumnText(1), "1 10 2 9,5 x ");
  box.ClickTitle(1);
  EXPECT_EQ(ColumnText(1), "x 1 2 9,5 10 ");
  EXPECT_FALSE(box.SortDescending());
  EXPECT_EQ(box.SortArrowLeft(), 1600);
  EXPECT_EQ(box.LeCelula(0, 1), "x");
  box.Add("under construction");
  box.ClickTitle(0);
  box.BoxNew();
  EXPECT_EQ(ColumnText(0), "B a b b Ç under construction "_w);
  EXPECT_EQ(box.List(5), "under construction");
  box.Config({1, 2, "Tahoma", 10, false}, 3, 4);
  EXPECT_EQ(box.SortArrowLeft(), 0);
}

TEST_F(NovoBoxTest, NumericColumnsTakeBothMarksForTheDecimalOne) {
  EXPECT_EQ(SortNumber("1.234,5"), 1.234);
  EXPECT_EQ(SortNumber("-2,5"), -2.5);
  EXPECT_EQ(SortNumber("abc"), 0);
}

TEST_F(NovoBoxTest, SortsTextsAsTheyCompare) {
  for (const std::string beginning : {"", "Cliente "}) {
    box.Clear();
    std::mt19937 random(11);
    std::vector<std::string> texts;
    for (int row = 0; row < 500; ++row) {
      std::string text(random() % 12, 'a');
      for (char& c : text) c = static_cast<char>("ab\x80\x9F\xE3\0 Z"[random() % 8]);
      text.insert(0, beginning);
      texts.push_back(text);
      box.Add(text);
      box.BoxNew();
    }
    box.ClickTitle(0);
    std::stable_sort(texts.begin(), texts.end(),
                     [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
    for (std::int32_t row = 0; row < 500; ++row) {
      EXPECT_EQ(box.LeVetor(row, 0), texts[static_cast<std::size_t>(row)]);
      EXPECT_EQ(box.List(row), box.LeVetor(row, 0));
    }
    box.ClickTitle(1);  // so that the next list sorts upwards too
  }
}

TEST_F(NovoBoxTest, ARemovedRowLeavesMatrixAndVector) {
  FillNumbers(6);
  box.Selected(5);
  EXPECT_EQ(box.Arg(0), "r5");
  EXPECT_EQ(box.BarraVertical().Value(), 2);
  box.GravaVetor(1, 1, "9", {});
  box.RemoveLinha(1);
  EXPECT_EQ(box.BarraVertical().Value(), 1);
  box.RemoveLinha(9);
  EXPECT_EQ(ColumnText(0), "r0 r2 r3 r4 r5 ");
  EXPECT_EQ(box.ListCount(), 5);
  EXPECT_TRUE(box.Selected(4));
  EXPECT_EQ(box.LeVetor(box.LinVetRef(), 0), "r5");
  box.Add("new");
  box.RemoveLinha(5);
  box.BoxNew();
  EXPECT_EQ(box.LeVetor(5, 0) + box.LeVetor(5, 1), "new") << "a row under construction can't be removed";
  box.Add("next");
  box.BoxNew();
  EXPECT_EQ(box.LeVetor(6, 1), "") << "it takes the removed one's room";
  box.Titulo("UF", 2, NovoBox::Align::kLeft, false);
  EXPECT_EQ(box.LeCelula(0, 0), box.LeVetor(box.LinIniVet(), 0)) << "the page shows its rows again";
}

TEST_F(NovoBoxTest, CellsKeepTheirAttributesThroughASort) {
  box.AtivaAtributos(true);
  box.Add("b", {7, -1, "", 0, true});
  box.BoxNew();
  box.Add("a");
  box.BoxNew();
  box.AddEnd();
  box.ClickTitle(0);
  const CellAttributes second{7, 2, "Tahoma", 10, true};
  EXPECT_EQ(box.Pool()[2].attributes, second);
  EXPECT_EQ(box.Pool()[0].attributes.fore, 1);
  box.LinhaAtributo(0, {9, -1, "", 0, false});
  EXPECT_EQ(box.Pool()[0].attributes.fore, 9);
}

TEST_F(NovoBoxTest, EditingReachesTheMatrixWhereItIsAllowed) {
  int told = 0;
  box.SofreuAlteracaoEvent = [&] { ++told; };
  Fill({{"a", "1"}});
  EXPECT_FALSE(box.EditCell(0, 1, "2"));
  box.SetAlteraCelula(true);
  EXPECT_TRUE(box.EditCell(0, 1, "2"));
  EXPECT_FALSE(box.EditCell(1, 1, "2"));
  EXPECT_EQ(box.LeVetor(0, 1) + box.LeCelula(0, 1), "22");
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(box.SofreuAlteracao());
  box.SetSofreuAlteracao(false);
  EXPECT_FALSE(box.SofreuAlteracao());
}

TEST_F(NovoBoxTest, TypingEditsTheClickedCell) {
  int told = 0;
  box.SofreuAlteracaoEvent = [&] { ++told; };
  Fill({{"a", "1"}, {"b", "22"}, {"c", "3"}});
  box.ClickCelula(3);
  EXPECT_FALSE(box.EditingPlace()) << "editing is off";
  EXPECT_FALSE(box.KeyPress('x'));
  box.SetAlteraCelula(true);
  EXPECT_FALSE(box.SofreuAlteracao());
  box.ClickCelula(3);
  EXPECT_EQ(box.EditingPlace(), (NovoBox::Place{1, 1}));
  EXPECT_TRUE(box.KeyPress('4'));
  EXPECT_FALSE(box.KeyPress('\r'));
  box.PlaceEditorCaret(0, 1);
  EXPECT_TRUE(box.KeyDown(46));  // Delete
  EXPECT_EQ(box.LeVetor(1, 1) + box.LeCelula(1, 1), "2424");
  EXPECT_TRUE(box.KeyDown(35, true));  // End, selecting
  EXPECT_TRUE(box.KeyDown(8));
  EXPECT_TRUE(box.KeyDown(8));
  EXPECT_EQ(box.LeVetor(1, 1), "");
  EXPECT_EQ(told, 3);
  EXPECT_TRUE(box.KeyDown(40));
  EXPECT_EQ(box.EditingPlace(), (NovoBox::Place{2, 1}));
  EXPECT_EQ(box.Editor().Text(), "3");
  EXPECT_TRUE(box.KeyDown(40));
  EXPECT_EQ(box.EditingPlace(), (NovoBox::Place{2, 1}));
  EXPECT_TRUE(box.SofreuAlteracao());
  box.SetAlteraCelula(false);
  EXPECT_FALSE(box.EditingPlace());
}

TEST_F(NovoBoxTest, AnEditedCellLosesItsFocusAndItsColours) {
  int lost = 0;
  box.CelulaPerdeuFoco = [&] { ++lost; };
  box.SetAlteraCelula(true);
  FillNumbers(10);
  box.ClickCelula(2);
  box.ClickCelula(2);
  EXPECT_EQ(lost, 0);
  EXPECT_EQ(box.Pool()[2].attributes.back, 4);
  box.ClickCelula(3);
  EXPECT_EQ(lost, 1);
  EXPECT_EQ(box.ColBoxRef(), 1);
  EXPECT_EQ(box.Pool()[2].attributes.back, 4) << "the cursor came to its row again";
  box.SetFocus(false);
  box.SetFocus(false);
  EXPECT_EQ(lost, 2);
  EXPECT_EQ(box.Pool()[3].attributes.back, 2);
  // What moves the rows, or takes them away, leaves no cell behind.
  const std::vector<std::function<void()>> ends = {[&] { box.ClickTitle(0); },  [&] { box.RemoveLinha(1); },
                                                   [&] { box.Desativa(); },     [&] { box.Ativa(false); },
                                                   [&] { box.ClearVet(true); }, [&] { box.Clear(); }};
  for (const auto& end : ends) {
    FillNumbers(3);
    box.ClickCelula(2);
    ASSERT_TRUE(box.EditingPlace());
    end();
    EXPECT_FALSE(box.EditingPlace());
    EXPECT_FALSE(box.KeyPress('x'));
  }
}

TEST_F(NovoBoxTest, AScrolledPageTakesTheCursorToAnotherRow) {
  FillNumbers(10);
  EXPECT_EQ(box.Arg(0), "");
  box.Selected(2);
  EXPECT_EQ(box.Arg(0) + box.Arg(1) + box.Arg(2) + box.Arg(-1), "r2");
  box.BarraVertical().SetValue(3);
  EXPECT_EQ(box.ListIndex(), 5);
  EXPECT_TRUE(box.HasCursor());
  EXPECT_EQ(box.Arg(0), "r5");
  EXPECT_EQ(box.Pool()[4].attributes.back, 4);
  for (const bool all : {false, true}) {
    box.Selected(2);
    all ? box.Clear() : box.ClearVet(false);
    FillNumbers(10);
    EXPECT_FALSE(box.HasCursor()) << "nothing of the new rows is chosen";
    EXPECT_EQ(box.ListIndex(), -1);
  }
  box.Selected(2);
  box.ClickTitle(1);
  box.TitleHover(0);
  box.Ativa(false);
  EXPECT_FALSE(box.HasCursor()) << "nor of a page that begins anew";
  EXPECT_EQ(box.LinBoxRef(), 0);
  EXPECT_EQ(box.TitleStateOf(0), NovoBox::TitleState::kAzul);
  EXPECT_EQ(box.SortArrowLeft(), 0);
}

TEST_F(NovoBoxTest, ARowWithoutAValueKeepsTheCursor) {
  Fill({{"a", "1"}});
  box.BoxNew();  // a blank row
  box.AddEnd();
  box.Selected(0);
  box.KeyDown(40);
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(box.Pool()[2].attributes.back, 4);
  box.AtualizaBox();
  box.KeyDown(38);
  EXPECT_EQ(box.ListIndex(), 0);
}

TEST_F(NovoBoxTest, AsksForTheFocusAndGivesItUp) {
  std::string asked;
  box.PedeFoco = [&](bool wanted) { asked += wanted ? '+' : '-'; };
  box.SetaFoco();
  EXPECT_TRUE(box.HasFocus());
  box.TitleHover(0);
  box.Desativa();
  EXPECT_FALSE(box.HasFocus());
  EXPECT_EQ(box.TitleStateOf(0), NovoBox::TitleState::kAzul) << "the pointer is elsewhere";
  box.SetFocus(true);
  EXPECT_TRUE(box.HasFocus());
  EXPECT_EQ(asked, "+-");
}

TEST_F(NovoBoxTest, WidthsStayWithinSixteenBits) {
  box.Config({1, 2, "Tahoma", 10, false}, 3, 4);
  box.Titulo("a", -5, NovoBox::Align::kLeft, false);
  box.Titulo("b", 2'000'000'000, NovoBox::Align::kLeft, false);
  EXPECT_EQ(box.TotalWidth(), 32767 * 120);
}

TEST_F(NovoBoxTest, ManyEditsOfOneCellHoldNoMoreMemory) {
  Fill({{"a", "1"}});
  const std::string text(10000, 'x');
  for (int edit = 0; edit < 1000; ++edit) box.GravaVetor(0, 0, text, {});
  EXPECT_EQ(box.LeVetor(0, 0), text);
  EXPECT_LT(box.Bytes(), 2'000'000U);
}

TEST_F(NovoBoxTest, PointsFindCellsAndTitles) {
  EXPECT_EQ(box.TitleAt(1250, 10), 1);
  EXPECT_EQ(box.TitleAt(2500, 10), std::nullopt);
  EXPECT_EQ(box.CelulaAt(0, 300), 0);
  EXPECT_EQ(box.CelulaAt(1250, 301), 1);
  EXPECT_EQ(box.CelulaAt(10, 1099), 6);
  EXPECT_EQ(box.CelulaAt(10, 1100), std::nullopt);
  box.TitleHover(1);
  EXPECT_EQ(box.TitleStateOf(1), NovoBox::TitleState::kLaranja);
  box.ClickTitle(1);
  EXPECT_EQ(box.TitleStateOf(1), NovoBox::TitleState::kLaranja2);
  box.TitleHover(std::nullopt);
  EXPECT_EQ(box.TitleStateOf(1), NovoBox::TitleState::kAzul);
}

}  // namespace
}  // namespace tessera
