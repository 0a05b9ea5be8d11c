// The grid on a window without a screen: what its control decides, and the list that stands hidden.
#include <gtest/gtest.h>

#include "objects/box_control.h"
#include "objects/grd_lst_a.h"
#include "support/console_window.h"

namespace tessera::test {

namespace {

constexpr std::string_view kTwoColumns =
    "Var i Inteiro\n"
    "Box G, 1, 1, 10\n"
    "Box G.Titulo, \"Nome\", 20\n"
    "Box G.Titulo, \"Valor\", 10, \"DIR\", \"NUMERICO\"\n"
    "Box G.Ativa\n"
    "Box G.AlteraCelula = \"SIM\"\n"
    "Enquanto i < 40\n"
    "Box G.Add i\n"
    "Box G.Add i * 2\n"
    "Box G.New\n"
    "i++\n"
    "Repita\n"
    "Box G.Fim\n";

class BoxTest : public ConsoleWindowTest {
 protected:
  BoxControl& Box(int row = 0) {
    return dynamic_cast<BoxControl&>(*Window().Controls().Element("GrdLstB", row));
  }
  NovoBox& Grid() { return Box().Grid(); }
  // The middle of a cell of the page.
  void PressCell(int row, int column) {
    const double height = PixelsOfTwips(Grid().RowHeight());
    Box().PointerDown(Box().ColumnLeft(column) + 10, Box().TitleHeight() + (row + 0.5) * height);
  }
};

}  // namespace

TEST_F(BoxTest, TheBarOfALowGridSharesItsLength) {
  Draw(
      "Box G, 1, 1, 2\nBox G.Titulo, \"a\", 20\nBox G.Ativa\nBox H, 9, 1, 10\nBox H.Titulo, \"a\", 20\n"
      "Box H.Ativa\n");
  const int low = static_cast<int>(Box(0).VerticalBarPlace().Height);
  ASSERT_LT(low, 3 * 10);
  EXPECT_EQ(Box(0).Grid().BarraVertical().ArrowLength(), low / 3);
  EXPECT_EQ(Box(0).Grid().BarraVertical().ThumbLength(), (low - 2 * (low / 3)) / 2);
  EXPECT_EQ(Box(1).Grid().BarraVertical().ArrowLength(), 10);
  EXPECT_EQ(Box(1).Grid().BarraVertical().ThumbLength(), 15);
}

TEST_F(BoxTest, AClickComesWhenTheButtonIsLetGoInside) {
  Draw(kTwoColumns);
  PressCell(4, 1);
  EXPECT_EQ(Grid().LinVetRef(), 4);
  EXPECT_EQ(Windows().events.EventoBox, "");
  Box().PointerUp(20, -5);
  EXPECT_EQ(Windows().events.EventoBox, "");
  PressCell(4, 1);
  Box().PointerUp(20, 40);
  EXPECT_EQ(Windows().events.EventoBox, "CLIQUEBOX");
  EXPECT_EQ(program.Read("G.Txt(1)"), "8");
}

TEST_F(BoxTest, ASecondPressIsADoubleClickOfACellAndAnotherClickOfATitle) {
  Draw(kTwoColumns);
  PressCell(1, 0);
  Box().PointerUp(20, 40);
  Box().PointerDownAgain(20, 40);
  EXPECT_EQ(Windows().events.EventoBox, "DUPLOCLIQUEBOX");
  Windows().events.EventoBox.clear();
  Box().PointerUp(20, 40);
  Box().PointerDown(200, 5);
  EXPECT_FALSE(Grid().SortDescending());
  Box().PointerUp(200, 5);
  Box().PointerDownAgain(200, 5);
  EXPECT_TRUE(Grid().SortDescending());
  EXPECT_EQ(Grid().LeVetor(0, 1), "78");
  EXPECT_EQ(Windows().events.EventoBox, "");
}

TEST_F(BoxTest, TheBarBesideThePageMovesIt) {
  Draw(kTwoColumns);
  const ControlPlace bar = Box().VerticalBarPlace();
  const double x = bar.Left + 5;
  Box().PointerDown(x, bar.Top + bar.Height - 2);
  EXPECT_EQ(Grid().LinIniVet(), 1);
  EXPECT_TRUE(Box().TimerRuns());
  for (int tick = 0; tick <= ScrollBar::kTicksBeforeRepeat + 1; ++tick) Box().Tick();
  EXPECT_EQ(Grid().LinIniVet(), 3);
  Box().PointerUp(x, bar.Top);
  EXPECT_FALSE(Box().TimerRuns());
  Box().Scroll(1000);
  EXPECT_EQ(Grid().LinIniVet(), 40 - Grid().TotalLinhas());
  Box().Scroll(-1000);
  EXPECT_EQ(Grid().LinIniVet(), 0);
  EXPECT_EQ(Windows().events.EventoBox, "");
}

TEST_F(BoxTest, APressIsALineOfAScript) {
  Draw(kTwoColumns);
  const double row = PixelsOfTwips(Grid().RowHeight());
  const double top = Box().TitleHeight();
  Box().Scroll(2);
  EXPECT_EQ(Box().PressLine(200, 5), "clique G Valor");
  EXPECT_EQ(Box().PressLine(20, top + 1.5 * row), "linha G 3");
  EXPECT_EQ(Box().PressLine(200, top + 0.5 * row), "linha G 2 1");
  EXPECT_EQ(Box().PressLine(Box().VerticalBarPlace().Left + 5, top + row), "");
  Draw("Box H, 1, 40, 10\nBox H.Titulo, \"a\", 20\nBox H.Ativa\nBox H.Add 1\nBox H.New\nBox H.Fim\n");
  EXPECT_EQ(Box().PressLine(20, top + 0.5 * row), "linha H 0");
  EXPECT_EQ(Box().PressLine(20, top + 1.5 * row), "clique H") << "below the last row";
}

TEST_F(BoxTest, ThePointerPlacesTheCaretAndSelects) {
  Draw(kTwoColumns);
  Box().EditCell(2, 0, "abcdef");
  const double left = Box().EditorTextLeft();
  const double y = Box().EditorPlace()->Top + 5;
  const double third = Box().EditorWidth(3) - Box().EditorWidth(2);
  Box().PointerDown(left + Box().EditorWidth(2) + 0.6 * third, y);
  EXPECT_EQ(Grid().Editor().Caret(), 3U) << "behind the letter whose second half is met";
  Box().PointerDown(left + Box().EditorWidth(2) + 0.4 * third, y);
  EXPECT_EQ(Grid().Editor().Caret(), 2U);
  Box().PointerMove(left + Box().EditorWidth(5) + 1, y);
  EXPECT_EQ(Grid().Editor().SelStart(), 2U);
  EXPECT_EQ(Grid().Editor().SelLength(), 3U);
  Box().PointerUp(left, y);
  Box().PointerMove(left, y);
  EXPECT_EQ(Grid().Editor().SelLength(), 3U) << "nothing is held any more";
  Box().OnKeyPress('X');
  EXPECT_EQ(Grid().LeVetor(2, 0), "abXf");
}

TEST_F(BoxTest, ALongTextMovesOnSoThatTheCaretShows) {
  Draw(kTwoColumns);
  Box().EditCell(2, 1, std::string(60, 'm'));
  const ControlPlace cell = *Box().EditorPlace();
  const double caret = Box().EditorTextLeft() + Box().EditorWidth(Grid().Editor().Caret());
  EXPECT_GT(caret, cell.Left);
  EXPECT_LT(caret, cell.Left + cell.Width);
}

TEST_F(BoxTest, AScrolledPageShowsTheEditorNoMore) {
  Draw(kTwoColumns);
  Box().EditCell(0, 0, "x");
  ASSERT_TRUE(Box().EditorPlace());
  Box().Scroll(10);
  EXPECT_FALSE(Box().EditorPlace());
}

TEST_F(BoxTest, LosesItsFocusWithEachCellThatWasEdited) {
  Draw(kTwoColumns);
  Box().SetFocus();
  PressCell(0, 0);
  EXPECT_EQ(program.Read("PerdeuFoco"), "");
  PressCell(1, 0);
  EXPECT_EQ(program.Read("PerdeuFoco"), "G");
  EXPECT_EQ(Box().form().Focus(), &Box());
}

TEST_F(BoxTest, TheColoursOfTheControlAreThoseOfCellsToCome) {
  Draw(
      "Box G, 1, 1, 10\nBox G.CorFundo = 255\nBox G.CorLetra = 16711680\nBox G.Titulo, \"a\", 20\nBox "
      "G.Ativa\n"
      "Box G.Add 1\nBox G.New\nBox G.Add 2, 0, 65535, \"Arial\", 12, \"NEGRITO\"\nBox G.New\nBox G.Fim\n");
  const CellAttributes plain = Grid().Pool()[0].attributes;
  EXPECT_EQ(plain.back, 255);
  EXPECT_EQ(plain.fore, 16711680);
  const CellAttributes own = {.fore = 0, .back = 65535, .font = "Arial", .size = 12, .bold = true};
  EXPECT_EQ(Grid().Pool()[1].attributes, own);
}

TEST_F(BoxTest, AnotherGridOnAFreedRowBeginsEmpty) {
  Draw(std::string(kTwoColumns) + "Box G.Remove\nBox H, 2, 2, 8\n");
  EXPECT_EQ(Box().Name(), "H");
  EXPECT_EQ(Grid().TotalColunas(), 0);
  EXPECT_EQ(Grid().ListCount(), 0);
  EXPECT_FALSE(Box().ShowsBars());
}

class HiddenListTest : public BoxTest {
 protected:
  BoxListControl& List(Form& form) {
    return dynamic_cast<BoxListControl&>(*form.Controls().Element("GrdLstA", 0));
  }
  void Fill(BoxList& list) {
    list.Config({0, 0xFFFFFF, "Tahoma", 10, false}, 0, 0);
    list.Titulo("Nome", 10, TextAlign::kLeft, false);
    list.Ativa(4);
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
      list.Add(name);
      list.BoxNew();
    }
    list.AddEnd();
  }
};

TEST_F(HiddenListTest, StandsHiddenOnEachWindowAlsoBehindItsClosing) {
  Draw("NovaJanela Define, Filha\nNovaJanela Define, Outra, FIXA\nNovaJanela Filha.Use\n");
  EXPECT_FALSE(List(Window()).Visible());
  for (const char* name : {"Filha", "Outra"}) {
    EXPECT_FALSE(List(*Windows().FindWindow(name)).Visible()) << name;
  }
  Windows().FindSlot("Filha")->owner->Unload();
  EXPECT_FALSE(List(*Windows().FindWindow("Filha")).Visible());
}

TEST_F(HiddenListTest, ItsClicksAndKeysAreThoseOfAList) {
  Draw("Cls\n");
  BoxListControl& list = List(Window());
  Fill(list.List());
  program.run.variables.VarWrite("ValorObjeto", std::string("antes"), true);
  list.ClickRow(5);
  EXPECT_EQ(list.List().Arg(0), "f");
  EXPECT_EQ(Windows().events.EventoBox, "CLIQUEBOX");
  EXPECT_EQ(program.Read("ValorObjeto"), "");
  list.OnKeyDown(key::kEnter, {});
  EXPECT_EQ(Windows().events.EventoBox, "DUPLOCLIQUEBOX");
  list.OnKeyDown(key::kUp, {});
  EXPECT_EQ(Windows().events.EventoBox, "CLIQUEBOX");
  EXPECT_EQ(list.List().Arg(0), "e");
  list.PressRow(4, true);
  EXPECT_TRUE(list.List().ValChk(4));
  EXPECT_FALSE(list.List().ValChk(5));
}

}  // namespace tessera::test
