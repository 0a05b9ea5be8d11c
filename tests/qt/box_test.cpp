// The grid on a real window: what it shows, and what real pointer and key events do to it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <ctime>

#include "objects/box_control.h"
#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "support/qt_window.h"

namespace tessera::test {

namespace {

constexpr std::string_view kList =
    "Var i Inteiro, nome String\n"
    "Box G, 1, 1, 12\n"
    "Box G.Titulo, \"Nome\", 20\n"
    "Box G.Titulo, \"Meio\", 10, \"CENTRO\"\n"
    "Box G.Titulo, \"Valor\", 10, \"DIR\", \"NUMERICO\"\n"
    "Box G.Ativa\n"
    "Enquanto i < 60\n"
    "nome = \"item \" & i\n"
    "Box G.Add nome\n"
    "Box G.Add \"um texto longo demais para a sua coluna\"\n"
    "Box G.Add 100 - i\n"
    "Box G.New\n"
    "i++\n"
    "Repita\n"
    "Box G.Fim\n";

class BoxOnWindows : public QtWindowTest {
 protected:
  BoxControl& Box() { return dynamic_cast<BoxControl&>(Element("GrdLstB", 0)); }
  NovoBox& Grid() { return Box().Grid(); }
  QWidget& Widget() { return WidgetOf(Box()); }
  QPoint InWindow(QPoint at) { return QtWindowTest::InWindow(Widget(), at); }
  void Click(QPoint at) { QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(at)); }
  void Move(QPoint at) { QTest::mouseMove(Top(), InWindow(at)); }

  int Right(int column) {
    return static_cast<int>(Box().ColumnLeft(column) + PixelsOfTwips(Grid().ColumnWidth(column)));
  }
  int RowTop(int row) {
    return static_cast<int>(Box().TitleHeight() + row * PixelsOfTwips(Grid().RowHeight()));
  }
  QPoint InCell(int row, int column) {
    return {static_cast<int>(Box().ColumnLeft(column)) + 12, RowTop(row) + 8};
  }
  QPoint InTitle(int column) { return {static_cast<int>(Box().ColumnLeft(column)) + 12, 6}; }

  QImage Shown(int scale = 1) {
    QPixmap picture(Widget().size() * scale);
    picture.setDevicePixelRatio(scale);
    Widget().render(&picture);
    return picture.toImage();
  }
};

// Milliseconds of the processor: three times what a page may take on a machine with nothing else to do, and
// more where the compiler's checks take theirs.
#ifdef NDEBUG
constexpr double kPageLimit = 15;
#else
constexpr double kPageLimit = 50;
#endif

}  // namespace

TEST_F(BoxOnWindows, TitlesStandOverTheirColumnsOnEveryScreen) {
  Start(kList);
  for (const int scale : {1, 2}) {
    const QImage picture = Shown(scale);
    for (int column = 0; column < 3; ++column) {
      const int line = Right(column) * scale - 1;
      const int title = 4 * scale;
      const int cell = (RowTop(3) + 8) * scale;
      EXPECT_NE(picture.pixel(line, title), picture.pixel(line - scale, title)) << column << " " << scale;
      EXPECT_NE(picture.pixel(line, cell), qRgb(255, 255, 255)) << column << " " << scale;
    }
  }
}

TEST_F(BoxOnWindows, TheThumbIsDraggedFromEndToEnd) {
  Start(kList);
  const ControlPlace bar = Box().VerticalBarPlace();
  const int x = static_cast<int>(bar.Left) + 5;
  const ScrollBar& state = Grid().BarraVertical();
  const int grip = static_cast<int>(bar.Top) + state.ThumbPosition() + state.ThumbLength() / 2;
  QTest::mousePress(Top(), Qt::LeftButton, {}, InWindow({x, grip}));
  Move({x, static_cast<int>(bar.Top + bar.Height) + 40});
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, InWindow({x, static_cast<int>(bar.Top + bar.Height) + 40}));
  EXPECT_EQ(Grid().LinIniVet(), 60 - Grid().TotalLinhas());
  EXPECT_EQ(Grid().LeCelula(Grid().TotalLinhas() - 1, 0), "item 59");
}

TEST_F(BoxOnWindows, AHeldArrowRepeatsItsStep) {
  Start(kList);
  const ControlPlace bar = Box().VerticalBarPlace();
  const QPoint down = InWindow({static_cast<int>(bar.Left) + 5, static_cast<int>(bar.Top + bar.Height) - 3});
  QTest::mousePress(Top(), Qt::LeftButton, {}, down);
  EXPECT_EQ(Grid().LinIniVet(), 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Grid().LinIniVet() > 3; }));
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, down);
  const int stopped = Grid().LinIniVet();
  QTest::qWait(3 * ScrollBar::kTickMs);
  EXPECT_EQ(Grid().LinIniVet(), stopped);
}

TEST_F(BoxOnWindows, TheWheelMovesThePage) {
  Start(kList);
  const auto turn = [&](int angle) {
    const QPointF at(40, 60);
    QWheelEvent wheel(at, Widget().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Widget(), &wheel);
  };
  turn(-120);
  EXPECT_EQ(Grid().LinIniVet(), 3);
  turn(-40);
  EXPECT_EQ(Grid().LinIniVet(), 4);
  turn(1200);
  EXPECT_EQ(Grid().LinIniVet(), 0);
}

TEST_F(BoxOnWindows, ACellIsEditedByKeysAndClipboard) {
  Start(std::string(kList) + "Box G.AlteraCelula = \"SIM\"\n");
  Click(InCell(1, 0));
  QTest::keyClick(Top(), Qt::Key_A, Qt::ControlModifier);
  for (const char character : std::string_view("Novo")) QTest::keyClick(Top(), character);
  EXPECT_EQ(Grid().LeVetor(1, 0), "Novo");
  EXPECT_EQ(program.janela.windows().events.EventoBoxAlterado, "SofreuAlteracao");
  QTest::keyClick(Top(), Qt::Key_Home);
  QTest::keyClick(Top(), Qt::Key_Backspace);
  EXPECT_EQ(Grid().LeVetor(1, 0), "Novo");
  QTest::keyClick(Top(), Qt::Key_Delete);
  EXPECT_EQ(Grid().LeVetor(1, 0), "ovo");
  QTest::keyClick(Top(), Qt::Key_End);
  QTest::keyClick(Top(), Qt::Key_Delete);
  QTest::keyClick(Top(), Qt::Key_Backspace);
  EXPECT_EQ(Grid().LeVetor(1, 0), "ov");
  QTest::keyClick(Top(), Qt::Key_Home, Qt::ShiftModifier);
  QTest::keyClick(Top(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Grid().LeVetor(1, 0), "");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "ov");
  QGuiApplication::clipboard()->setText(QStringLiteral("çã\n"));
  QTest::keyClick(Top(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Grid().LeVetor(1, 0), "\xE7\xE3");
  // The edited cell stands out from its row, until the focus leaves the grid.
  const QPoint corner(static_cast<int>(Right(0)) - 6, RowTop(1) + 6);
  EXPECT_EQ(Shown().pixelColor(corner), QColor(Qt::white));
  QTest::keyClick(Top(), Qt::Key_Down);
  ASSERT_TRUE(Grid().EditingPlace());
  EXPECT_EQ(Grid().EditingPlace()->row, 2);
}

// In each row, and while it is edited.
TEST_F(BoxOnWindows, ACellHasAFontOfItsOwn) {
  Start(
      "Box G, 1, 1, 12\nBox G.Titulo, \"a\", 20\nBox G.Ativa\nBox G.Add \"MM\"\nBox G.New\n"
      "Box G.Add \"MM\", 0, 16777215, \"Arial\", 12, NEGRITO\nBox G.New\nBox G.Add \"MM\"\nBox G.New\nBox "
      "G.Fim\n"
      "Box G.AlteraCelula = \"SIM\"\n");
  const auto ink = [&](int row) {
    const QImage shown = Shown().copy(2, RowTop(row) + 2, Right(0) - 8, RowTop(1) - RowTop(0) - 4);
    int dark = 0;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) dark += 255 - qGray(shown.pixel(x, y));
    }
    return dark;
  };
  const int plain = ink(0);
  const int large = ink(1);
  EXPECT_GT(large, plain * 3 / 2);
  EXPECT_EQ(ink(2), plain);
  Click(InCell(1, 0));
  EXPECT_GT(ink(1), plain * 3 / 2) << "with the caret in it";
}

TEST_F(BoxOnWindows, ADisabledGridFeelsNothingAndLooksGrey) {
  Start(std::string(kList) + "Box G.Ativo = \"NAO\"\n");
  Click(InTitle(2));
  Click(InCell(1, 0));
  EXPECT_EQ(Grid().LeVetor(0, 2), "100");
  EXPECT_EQ(program.janela.windows().events.EventoBox, "");
  EXPECT_EQ(Shown().pixelColor(Right(0) - 6, RowTop(1) + 6), QColor(skin::kFieldDisabled));
}

TEST_F(BoxOnWindows, WideColumnsAreReachedByTheBarBelow) {
  Start(
      "Box G, 1, 1, 12\nBox G.Titulo, \"a\", 60\nBox G.Titulo, \"b\", 60\nBox G.Ativa\n"
      "Box G.Add 1\nBox G.Add 2\nBox G.New\nBox G.Fim\n");
  const ControlPlace bar = Box().HorizontalBarPlace();
  ASSERT_GT(bar.Width, 0);
  EXPECT_EQ(bar.Top + bar.Height, Box().FramePlace().Height);
  const QPoint right(static_cast<int>(bar.Left + bar.Width) - 3, static_cast<int>(bar.Top) + 5);
  for (int click = 0; click < 40; ++click) Click(right);
  // The last column ends where the vertical bar begins.
  EXPECT_EQ(Right(1), static_cast<int>(Box().VerticalBarPlace().Left));
  Click(InTitle(1));
  EXPECT_EQ(Grid().SortColumn(), 1);
}

// Two hundred cells, none of which fits its column.
TEST_F(BoxOnWindows, APageIsShownInTime) {
  Start(
      "Var i Inteiro\nJanela Tamanho = 50, 110\nBox G, 1, 1, 36\nBox G.Titulo, \"a\", 12\nBox G.Titulo, "
      "\"b\", 12\n"
      "Box G.Titulo, \"c\", 12\nBox G.Titulo, \"d\", 12\nBox G.Titulo, \"e\", 12\nBox G.Ativa\n");
  for (int row = 0; row < 1000; ++row) {
    for (int column = 0; column < 5; ++column) {
      Grid().Add("um texto longo " + std::to_string(row * column));
    }
    Grid().BoxNew();
  }
  Grid().AddEnd();
  ASSERT_EQ(Grid().TotalCelulas(), 200);
  double fastest = 1000;
  for (int page = 0; page < 10; ++page) {
    const std::clock_t start = std::clock();
    Box().Scroll(Grid().TotalLinhas());
    Widget().repaint();
    fastest = std::min(fastest, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  EXPECT_LT(fastest, kPageLimit);
}

}  // namespace tessera::test
