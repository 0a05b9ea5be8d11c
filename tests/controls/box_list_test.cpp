#include "controls/box_list.h"

#include <gtest/gtest.h>

#include "controls/key_code.h"

namespace tessera {
namespace {

// Three visible rows over five, in two columns.
struct BoxListTest : testing::Test {
  BoxListTest() {
    list.Config({1, 2, "Tahoma", 10, false}, 3, 4);
    list.Titulo("Nome", 10, BoxList::Align::kLeft, false);
    list.Titulo("Cidade", 10, BoxList::Align::kLeft, false);
    list.Ativa(3);
    for (const char name : std::string_view("abcde")) {
      list.Add({&name, 1});
      list.Add(name == 'c' ? "" : "x");
      list.BoxNew2();
    }
    list.AddEnd();
  }
  // The visible rows: the cells, "*" where checked, ">" at the cursor.
  std::string Page() const {
    std::string page;
    for (int row = 0; row < list.TotalLinhas(); ++row) {
      const std::int32_t place = list.LinIniVet() + row;
      if (list.ListIndex() == place && list.ListCount() > place) page += ">";
      page += list.Celula(row, 0) + list.Celula(row, 1) + (list.ValChk(place) ? "* " : " ");
    }
    return page;
  }
  BoxList list;
};

TEST_F(BoxListTest, IsFilledAndReadAsTheGridIs) {
  EXPECT_FALSE(list.Add("1") && list.Add("2") && list.Add("3"));
  EXPECT_EQ(list.ListCount(), 6);
  EXPECT_EQ(list.List(4) + list.LeVetor(4, 1), "ex");
  EXPECT_EQ(Page(), "ax bx c ");
  list.ListBoxStr(2);
  EXPECT_EQ(Page(), "c dx ex ");
  EXPECT_EQ(list.Celula(3, 0) + list.Celula(-1, 0), "");
  list.Clear();
  EXPECT_EQ(Page(), "   ");
  EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(BoxListTest, KeysMoveAsInTheGrid) {
  for (const int code : {key::kDown, key::kDown, key::kDown, key::kDown}) EXPECT_TRUE(list.KeyDown(code));
  EXPECT_EQ(Page(), "c dx >ex ");
  EXPECT_TRUE(list.KeyDown(key::kPageUp));
  EXPECT_EQ(Page(), "ax bx >c ");
  EXPECT_TRUE(list.Selected(4));
  EXPECT_EQ(list.Arg(0), "e");
  EXPECT_FALSE(list.Selected(5));
  EXPECT_EQ(list.Arg(0), "e");
  EXPECT_TRUE(list.SelBox(0));
  EXPECT_FALSE(list.SelBox(3));
  EXPECT_EQ(Page(), ">c dx ex ");
  EXPECT_TRUE(list.KeyDown(key::kUp));
  EXPECT_EQ(Page(), ">bx c dx ");
  list.SelBox(1);
  EXPECT_TRUE(list.KeyDown(key::kUp));
  EXPECT_EQ(Page(), ">bx c dx ");
}

TEST_F(BoxListTest, ChecksAreOfTheirRows) {
  list.SetChk(1, true);
  list.SetChk(9, true);
  list.SetChk(-1, true);
  EXPECT_EQ(list.ArgChk(), 0);
  EXPECT_TRUE(list.Click(1, false));
  EXPECT_EQ(list.ArgChk(), 1);
  EXPECT_TRUE(list.Click(2, true));
  EXPECT_EQ(Page(), "ax bx* >c* ");
  EXPECT_TRUE(list.KeyDown(key::kSpace));
  EXPECT_EQ(Page(), "ax bx* >c ");
  list.RemoveLinha(0);
  EXPECT_EQ(Page(), "bx* c >dx ");
  list.RemoveLinha(0);
  for (int row = 3; row < 6; ++row) {
    list.BoxNew();
    EXPECT_FALSE(list.ValChk(row)) << "a row that takes a removed one's room";
  }
  EXPECT_FALSE(list.ValChk(9));
}

TEST_F(BoxListTest, ChecksOutliveAFurtherColumn) {
  list.SetChk(3, true);
  list.Titulo("UF", 2, BoxList::Align::kLeft, false);
  EXPECT_TRUE(list.ValChk(3));
  EXPECT_EQ(list.LeVetor(3, 0) + list.LeVetor(3, 2), "d");
}

TEST_F(BoxListTest, TheCursorRowIsRemoved) {
  EXPECT_FALSE(list.DeleteRegistroAtual());
  list.Selected(1);
  EXPECT_TRUE(list.KeyDown(key::kDelete));
  EXPECT_EQ(list.ListCount(), 5) << "the key is not accepted yet";
  list.SetDelete(true);
  EXPECT_TRUE(list.KeyDown(key::kDelete));
  EXPECT_EQ(Page(), "ax >c dx ");
  while (list.DeleteRegistroAtual()) continue;
  EXPECT_EQ(list.LinVet(), 0);
  EXPECT_FALSE(list.KeyDown(key::kDelete));
}

TEST_F(BoxListTest, TellsBlankRows) {
  list.Add("  ");
  list.BoxNew();
  EXPECT_FALSE(list.TestaLinhaVazia(2));
  EXPECT_TRUE(list.TestaLinhaVazia(5));
  EXPECT_TRUE(list.TestaLinhaVazia(99));
}

TEST_F(BoxListTest, RowsAreEditedWhereThatIsAllowed) {
  EXPECT_FALSE(list.EditCell(0, 0, "z"));
  list.SetAltera(true);
  EXPECT_TRUE(list.EditCell(0, 0, "z"));
  EXPECT_EQ(Page(), "zx bx c ");
  EXPECT_TRUE(list.SofreuAlteracao());
  list.SetEnabled(false);
  EXPECT_FALSE(list.EditCell(0, 0, "y") || list.Click(0, true) || list.KeyDown(key::kDown));
}

}  // namespace
}  // namespace tessera
