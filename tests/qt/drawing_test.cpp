// Drawing and the desktop's dialogs on real widgets.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include "qt/desktop_dialogs.h"
#include "qt/pictures.h"
#include "qt/print_surface.h"
#include "qt/surface_pane.h"
#include "support/qt_window.h"
#include "support/temporary_folder.h"
#include "windows/picture_commands.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

class PaintCounter final : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    paintings += event->type() == QEvent::Paint;
    return false;
  }
  int paintings = 0;
};

// Its keys go to the dialog as a whole.
template <typename Dialog>
using With = When<Dialog, Waits::UntilShown>;

class QtDrawingTest : public QtWindowTest {
 protected:
  QImage Picture(const char* name) {
    const QImage picture = WidgetNamed("Janela")->grab().toImage();
    KeepLook(picture, name);
    return picture;
  }
};

constexpr std::string_view kDrawing =
    "Gradiente 16642787, 16168292\n"
    "Circulo 7, 60, 6, Amarelo\nRetangulo 20, 10, 28, 40, VermelhoEscuro\nPinte 24, 25, Vermelho\n"
    "LinhaReta 20, 8, 12, 25, Preto\nLinhaReta 12, 25, 20, 42, Preto\nLinhaReta 20, 8, 20, 42, Preto\n"
    "Pinte 16, 25, 4740473\nPonto 2, 2, Azul\nCirculo 24, 60, 3, VerdeEscuro\n"
    "Posicione 2, 4\nEscreva \"Casa\"\n";

}  // namespace

TEST_F(QtDrawingTest, TheScreenShowsThePixelsThatTheProgramReads) {
  Start(kDrawing);
  const QImage picture = Picture("desenho");
  ASSERT_EQ(picture.size(), QSize(640, 420));
  for (int y = 0; y < 420; ++y) {
    for (int x = 0; x < 640; ++x) {
      const Colour read = Main().Point({x, y});
      const QRgb shown = picture.pixel(x, y);
      ASSERT_EQ(read, qRed(shown) | qGreen(shown) << 8 | qBlue(shown) << 16) << x << ", " << y;
    }
  }
}

TEST_F(QtDrawingTest, DrawingShowsThoughTheProgramLetsNoEventThroughAndNoOftenerThanTheScreen) {
  PaintCounter counter;
  qApp->installEventFilter(&counter);
  QElapsedTimer time;
  time.start();
  Start(
      "Var i Inteiro\nEnquanto i < 5000\nLinhaReta 0, 0, 25, i % 80, Azul\nCirculo 9, i % 80, 2, Verde\n"
      "Ponto 3, i % 80, 0\ni++\nRepita\n");
  const auto milliseconds = time.elapsed();
  qApp->removeEventFilter(&counter);
  EXPECT_GE(counter.paintings, milliseconds > 100 ? 3 : 1);
  EXPECT_LE(counter.paintings, milliseconds / 16 + 5) << milliseconds << " ms";
}

// The second circle comes too soon behind the first to be painted at once, and then the program computes.
TEST_F(QtDrawingTest, WhatWasDrawnLastShowsThoughTheProgramMerelyComputesOn) {
  PaintCounter counter;
  int paintings = 0;
  AtWord(program.run, "LePorta", [&](std::string_view) {
    qApp->installEventFilter(&counter);
    return Value();
  });
  AtWord(program.run, "EnviaPorta", [&](std::string_view) {
    paintings = counter.paintings;
    return Value();
  });
  Start(
      "Var i Inteiro\nCirculo 9, 9, 2, Verde\nLePorta\nCirculo 9, 20, 2, Verde\n"
      "Enquanto i < 5000000\ni++\nRepita\nEnviaPorta\n");
  qApp->removeEventFilter(&counter);
  EXPECT_GE(paintings, 1);
  EXPECT_LE(paintings, 2);
}

TEST_F(QtDrawingTest, ABackgroundLiesBelowDrawingsAndAPaintedFileAboveThem) {
  Start("LinhaReta 0, 0, 0, 79, Vermelho\n");
  program.Fundo(Main(), "ImgPantano");
  const QImage picture = Picture("pantano");
  EXPECT_EQ(picture.pixel(300, 0), qRgb(255, 0, 0));
  const QRgb sun = picture.pixel(500, 92);
  EXPECT_EQ(sun, qRgb(255, 248, 225));
  EXPECT_EQ(Main().Point({500, 92}), 255 | 248 << 8 | 225 << 16);
}

TEST(PrintSurface, OnAFineScreenDrawingsKeepTheirPlacesAndTextBesideThemStaysFine) {
  const double ratios[] = {1.25, 1.5, 2, 3};
  for (const double ratio : ratios) {
    Raster raster;
    PrintSurface surface(raster);
    surface.Fit(QSize(80, 40), ratio);
    surface.Draw(BoxSpans({80, 40}, {0, 0}, {79, 39}), 0xFFFFFFFF);
    surface.Draw(BoxSpans({80, 40}, {8, 4}, {31, 19}), 0xFF0000FF);
    QImage screen(QSize(static_cast<int>(80 * ratio), static_cast<int>(40 * ratio)), QImage::Format_RGB32);
    screen.setDevicePixelRatio(ratio);
    screen.fill(Qt::black);
    QPainter painter(&screen);
    surface.PaintOn(painter, QRect(0, 0, 80, 40));
    painter.end();
    int blue = 0;
    int black = 0;
    for (int y = 0; y < screen.height(); ++y) {
      for (int x = 0; x < screen.width(); ++x) {
        blue += screen.pixel(x, y) == qRgb(0, 0, 255);
        black += screen.pixel(x, y) == qRgb(0, 0, 0);
      }
    }
    EXPECT_EQ(black, 0) << "a gap between neighbours at " << ratio;
    EXPECT_NEAR(blue, 24 * 16 * ratio * ratio, 60) << ratio;
  }
}

// A surface's widget on a finer screen, where it may be moved to another one.
struct FineWidget final : QWidget {
  QImage Shown() {
    QImage screen(size() * ratio, QImage::Format_RGB32);
    screen.setDevicePixelRatio(ratio);
    render(&screen);
    return screen;
  }
  int metric(PaintDeviceMetric which) const override {
    return which == PdmDevicePixelRatioScaled ? ratio << 16 : QWidget::metric(which);
  }
  void paintEvent(QPaintEvent* event) override { pane->OnPaint(*event); }
  SurfacePane* pane = nullptr;
  int ratio = 2;
};

TEST_F(QtDrawingTest, OnAFineScreenAPictureIsFineAndTakesItsPartAlone) {
  Start("");
  FineWidget widget;
  widget.resize(80, 40);
  DrawnPanes drawn;
  Raster raster;
  SurfacePane pane(widget, Main(), raster, drawn);
  widget.pane = &pane;
  const PictureRef figure = StockPicture(StockKind::Figure, 0);
  for (const int left : {0, 20, 40}) {
    widget.ratio = left < 40 ? 2 : 3;
    pane.Paint({{figure, {left, 4}, {32, 16}}}, true);
    QImage wanted = widget.Shown();
    wanted.fill(qRgb(240, 240, 240));
    QPainter painter(&wanted);
    painter.setClipRect(left, 4, 32, 16);
    painter.drawImage(left, 4, ToQImage(*figure, widget.ratio));
    EXPECT_EQ(widget.Shown(), wanted) << left;
  }
  widget.resize(120, 40);
  pane.Draw({{.y = 5, .left = 100, .right = 110}}, 0xFF0000FF);
  EXPECT_EQ(widget.Shown().pixel(315, 16), qRgb(0, 0, 255)) << "where there was no room before";
}

TEST_F(QtDrawingTest, TheDialogsAnswerWhatThePersonChoseAndCancelIsNothing) {
  TemporaryFolder folder;
  folder.Write("um.txt", "x");
  {
    With<QFileDialog> choosing("DialogoArquivo", [&](QFileDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Abra já");
      EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
      EXPECT_EQ(dialog.nameFilters(), QStringList{"Textos (*.txt *.csv)"});
      dialog.selectFile(QString::fromStdString(folder / "um.txt"));
      QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    });
    const auto path = ShowFileDialog(
        {.title = "Abra j\xE1", .description = "Textos", .pattern = "*.txt;*.csv", .proposed = {}}, nullptr);
    EXPECT_EQ(path, folder / "um.txt");
  }
  {
    With<QFileDialog> saving("DialogoArquivo", [&](QFileDialog& dialog) {
      EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "Salvar");
      EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave) << "it asks before a file goes";
      QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    });
    EXPECT_EQ(
        ShowFileDialog(
            {.save = true, .title = {}, .description = {}, .pattern = {}, .proposed = folder / "novo.txt"},
            nullptr),
        folder / "novo.txt");
  }
  {
    With<QColorDialog> choosing("DialogoCor", [](QColorDialog& dialog) {
      dialog.setCurrentColor(QColor(1, 2, 3));
      dialog.accept();
    });
    EXPECT_EQ(ShowColourDialog("Cor", nullptr), 1 + 2 * 256 + 3 * 65536);
  }
  {
    With<QFontDialog> choosing("DialogoFonte", [](QFontDialog& dialog) {
      QFont font("DejaVu Sans", 14);
      font.setBold(true);
      dialog.setCurrentFont(font);
      dialog.accept();
    });
    const auto font = ShowFontDialog("", nullptr);
    ASSERT_TRUE(font);
    EXPECT_EQ(font->size, 14);
    EXPECT_TRUE(font->bold);
  }
  {
    With<QDialog> choosing("DialogoImpressora", [&](QDialog& dialog) {
      auto& printers = *dialog.findChild<QComboBox*>("printers");
      printers.setCurrentIndex(printers.count() - 1);
      dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(folder / "a.pdf"));
      QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    });
    EXPECT_EQ(ShowPrinterDialog("", nullptr), folder / "a.pdf");
  }
  With<QDialog> cancelling("DialogoImpressora",
                           [](QDialog& dialog) { QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape); });
  EXPECT_FALSE(ShowPrinterDialog("", nullptr));
}

TEST_F(QtDrawingTest, TheDialogsSpeakPortuguese) {
  // Titles of what a person may press, in all that the dialog shows.
  const auto expectWords = [](QDialog& dialog, const QStringList& words) {
    QStringList seen;
    for (const auto* button : dialog.findChildren<QAbstractButton*>()) seen << button->text().remove(u'&');
    for (const auto* label : dialog.findChildren<QLabel*>()) seen << label->text().remove(u'&');
    for (const QString& word : words) {
      EXPECT_TRUE(seen.contains(word)) << qPrintable(word) << " in " << qPrintable(seen.join(" | "));
    }
    for (const char* english : {"Cancel", "Open", "Print", "Red:", "Size", "Effects"}) {
      EXPECT_FALSE(seen.contains(QLatin1String(english))) << english;
    }
    dialog.reject();
  };
  {
    With<QDialog> look("DialogoArquivo", [&](QDialog& dialog) {
      expectWords(dialog, {"Abrir", "Cancelar", "Pasta:", "Nome:", "Tipo:"});
    });
    ShowFileDialog({}, nullptr);
  }
  {
    With<QDialog> look("DialogoCor", [&](QDialog& dialog) {
      expectWords(dialog, {"Cancelar", "Vermelho:", "Verde:", "Azul:"});
    });
    ShowColourDialog("", nullptr);
  }
  {
    With<QDialog> look("DialogoFonte", [&](QDialog& dialog) {
      expectWords(dialog, {"Cancelar", "Fonte", "Tamanho", "Sublinhado"});
    });
    ShowFontDialog("", nullptr);
  }
  With<QDialog> look("DialogoImpressora", [&](QDialog& dialog) {
    expectWords(dialog, {"Imprimir", "Cancelar"});
  });
  ShowPrinterDialog("", nullptr);
}

}  // namespace tessera::test
