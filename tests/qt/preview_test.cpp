// The preview of a report on real windows, driven by real events.
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "qt/looks/skin.h"
#include "support/qt_person.h"
#include "support/qt_window.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

namespace fs = std::filesystem;

class RecordedReports final : public reports::ReportHost {
 public:
  void TellPage(std::string_view label) override { said += "[relatorio] " + ToUtf8(label) + "\n"; }
  void TellPrinted(std::string_view, int pages) override { said += std::to_string(pages) + " printed\n"; }
  std::string said;
};

class PreviewOnWindows : public testing::Test {
 protected:
  void Prepare(HostedProgram& program) {
    program.run.ProgramFolderText = folder.path().string() + "\\";
    program.run.paths = PathMapping(program.run.host.files, folder.path().string(), folder.path().string());
  }
  std::function<void(Services&)> WithPaper() {
    return [this](Services& services) {
      services.findPainter = reports::PainterOfPart({TESSERA_PARTS});
      services.reportHost = &reports;
      services.printer = (folder.path() / "papel.pdf").string();
    };
  }

  TemporaryFolder folder;
  RecordedReports reports;
};

// The same program as on the console host, by the same script, says the same and turns to the same pages.
TEST_F(PreviewOnWindows, PlaysTheScriptOfTheConsole) {
  const fs::path files =
      fs::path(TESSERA_SOURCE_DIR) / "tests/reports/programs/a_report_is_previewed_page_by_page";
  PlayedOnWindows played(ReadBytes(files.string() + ".in"), WithPaper());
  Prepare(played.program);
  std::string labels;
  std::istringstream told(ReadBytes(files.string() + ".err"));
  for (std::string line; std::getline(told, line);) {
    if (line.starts_with("[relatorio]")) labels += line + "\n";
  }
  EXPECT_EQ(played.program.Run(ReadBytes(files.string() + ".tsc")), 0);
  EXPECT_EQ(reports.said, labels);
  EXPECT_EQ(played.boxes.boxes.size(), 1u);
  EXPECT_FALSE(fs::exists(folder.path() / "XRel"));
}

// What a person sees and does, step by step, while the preview is open.
class PreviewSteps : public PreviewOnWindows {
 protected:
  QWidget* Window() const { return WidgetNamed("FrmXRel"); }
  QWidget& Part(const char* name) const { return *Window()->findChild<QWidget*>(name); }
  QImage Look(const char* name = nullptr) const {
    const QImage image = (name == nullptr ? *Window() : Part(name)).grab().toImage();
    return image.convertToFormat(QImage::Format_RGB32);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(Window()->windowHandle(), key, modifiers);
  }
  void Click(const char* name) const {
    QWidget& part = Part(name);
    QTest::mouseClick(Window()->windowHandle(), Qt::LeftButton, {},
                      part.mapTo(Window(), part.rect().center()));
  }
  void Wheel(int turned, Qt::KeyboardModifiers modifiers = {}) const {
    QWidget& page = Part("PicXRel");
    const QPointF at(page.rect().center());
    QWheelEvent event(at, page.mapToGlobal(at), {}, {0, turned}, {}, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&page, &event);
  }
  // The left edge of the white page on a line of its frame; -1 where there is none.
  int PageLeft() const {
    const QImage frame = Look("PicXRel");
    for (int x = 0; x < frame.width(); ++x) {
      if (frame.pixel(x, frame.height() / 2) == 0xFFFFFFFF) return x;
    }
    return -1;
  }

  // Whether the first lines of a picture that are no paper stand in it as they stood in the other, but
  // higher.
  static bool IsRaised(const QImage& now, const QImage& before) {
    for (int up = 1; up < now.height() / 2; ++up) {
      const QRect rest(0, 0, now.width(), now.height() - up);
      if (now.copy(rest) == before.copy(rest.translated(0, up))) return true;
    }
    return false;
  }

  // Runs a report of `pages` pages; the steps follow while its preview is open.
  void Preview(int pages, std::vector<std::function<void()>> steps) {
    QtHost qt;
    HostedProgram program(qt.host(), qt, WithPaper());
    Prepare(program);
    QTimer timer;
    std::size_t next = 0;
    int idle = 0;
    timer.callOnTimeout([&] {
      // At first the host only paints the window, and lets nothing in.
      const Form* inHand = Window() == nullptr ? nullptr : program.janela.windows().WindowInHand();
      if (inHand == nullptr || !static_cast<const QtForm*>(inHand)->IsServing()) return;
      if (next < steps.size()) return steps[next++]();
      // A preview that its last step leaves open would stay so for ever.
      constexpr int kPatience = 50;
      if (++idle == kPatience) Window()->close();
    });
    timer.start(20);
    const std::string source =
        "Var p Inteiro, l Inteiro\nRel.Config \"SAIDA:VIDEO MARGEMESQ:600 MARGEMSUP:600\"\n"
        "Rel.Col 0, \"TAM:40\"\nEnquanto p < " +
        std::to_string(pages) +
        "\nl = 0\nEnquanto l < 60\nRel.Add p\nRel.Add l\nRel.Add \"1,00\"\nRel.Add "
        "\"2,00\"\nRel.Add \"3,00\"\nRel.NovaLinha\nl++\nRepita\np++\nSe p < " +
        std::to_string(pages) +
        "\nRel.NovaPagina\nFimSe\nRepita\nRel.Fim\nRel.Config \"SAIDA:IMPRESSORA\"\n"
        "Rel.Imprime \"um\", 0\nRel.Fim\nFimJanela\n";
    EXPECT_EQ(program.Run(source), 0);
    EXPECT_EQ(next, steps.size()) << "the preview closed before its last step";
    EXPECT_LT(idle, 50) << "the last step left the preview open";
  }
};

TEST_F(PreviewSteps, ZoomsByKeysWheelAndList) {
  int atFull = 0;
  Preview(3, {[&] { Window()->resize(940, 720); },
              [&] {
                EXPECT_EQ(Part("TxtPagFim").accessibleName(), "TxtPagFim");
                EXPECT_EQ(Window()->windowTitle(), QStringLiteral("Relatório"));
                EXPECT_EQ(Part("TxtPagFim").y(), Part("TxtPagIni").y());
                atFull = PageLeft();
                EXPECT_GT(atFull, 20) << "the page stands in the middle of its frame";
                EXPECT_NE(Look("PicXRel").pixel(atFull - 1, 300), Look("PicXRel").pixel(atFull - 9, 300));
                KeepLook(Look(), "previa");
                Wheel(120, Qt::ControlModifier);
              },
              [&] {
                EXPECT_LT(PageLeft(), 12) << "125 % is wider than the frame";
                Key(Qt::Key_Minus, Qt::ControlModifier);
                Key(Qt::Key_Minus, Qt::ControlModifier);
              },
              [&] {
                EXPECT_GT(PageLeft(), atFull) << "75 %";
                KeepLook(Look(), "previa_75");
                Key(Qt::Key_Plus, Qt::ControlModifier);
              },
              [&] {
                EXPECT_EQ(PageLeft(), atFull);
                const QImage before = Look("PicXRel");
                Wheel(-120);
                EXPECT_TRUE(IsRaised(Look("PicXRel"), before)) << "the wheel moves the page";
                Wheel(1200);
                EXPECT_EQ(Look("PicXRel"), before) << "and no further than its end";
                QWindow* top = Window()->windowHandle();
                QTest::mousePress(top, Qt::LeftButton, {}, {300, 400});
                QTest::mouseMove(top, {300, 350});
                EXPECT_NE(Look("PicXRel"), before) << "the page follows the pointer that holds it";
                QTest::mouseRelease(top, Qt::LeftButton, {}, {300, 400});
                EXPECT_EQ(Look("PicXRel"), before);
                Click("CmbZoom");
                // Typed over what stands there: the whole page in sight.
                Key(Qt::Key_Home);
                Key(Qt::Key_End, Qt::ShiftModifier);
                QTest::keyClick(Window()->windowHandle(), '5');
                QTest::keyClick(Window()->windowHandle(), '0');
              },
              [&] {
                EXPECT_GT(PageLeft(), 200) << "50 %";
                const QImage frame = Look("PicXRel");
                int right = frame.width() - 1;
                while (right > 0 && frame.pixel(right, 200) != 0xFFFFFFFF) --right;
                EXPECT_LT(qGray(frame.pixel(right + 3, 200)), qGray(frame.pixel(right + 9, 200)))
                    << "the page's shadow";
                Window()->resize(700, 500);
              },
              [&] {
                KeepLook(Look(), "previa_pequena");
                EXPECT_EQ(Part("PicXRel").geometry().right() + 17 + 5, Window()->width() - 1);
                Window()->resize(940, 720);
                Click("CmbZoom");
                Key(Qt::Key_Home);
                Key(Qt::Key_End, Qt::ShiftModifier);
                for (const char letter : {'L', 'a', 'r', 'g', 'u', 'r', 'a'}) {
                  QTest::keyClick(Window()->windowHandle(), letter);
                }
              },
              [&] {
                EXPECT_EQ(PageLeft(), 8) << "as wide as its frame";
                KeepLook(Look(), "previa_largura");
                // Tab goes from the zoom to the buttons: the third one leaves.
                for (int i = 0; i < 3; ++i) Key(Qt::Key_Tab);
                Key(Qt::Key_Space);
              }});
  EXPECT_EQ(reports.said, "[relatorio] 1 of 3\n1 printed\n");
}

// Those that turn back are the mirror of those that go on; the outer ones have a bar more.
TEST_F(PreviewSteps, EachArrowPointsItsWayAndFollowsThePointer) {
  const auto onScreen = [this] {
    const QWidget& arrow = Part("ImgSeta2");
    const QImage screen = Window()->screen()->grabWindow(Window()->winId()).toImage();
    return screen.copy(QRect(arrow.mapTo(Window(), QPoint()), arrow.size()));
  };
  QImage rest;
  Preview(3, {[&] {
                const QImage first = Look("ImgSeta"), back = Look("ImgSeta1");
                EXPECT_EQ(Look("ImgSeta2"), back.mirrored(true, false));
                EXPECT_EQ(Look("ImgSeta3"), first.mirrored(true, false));
                EXPECT_NE(Look("ImgSeta2"), back);
                const QPoint behindTip(9, 13);
                EXPECT_LT(qGray(first.pixel(behindTip)), 150) << "the bar";
                EXPECT_EQ(back.pixel(behindTip), back.pixel(0, 0));
                rest = onScreen();
                QTest::mouseMove(Window()->windowHandle(), {300, 300});
                const QWidget& arrow = Part("ImgSeta2");
                QTest::mouseMove(Window()->windowHandle(), arrow.mapTo(Window(), arrow.rect().center()));
              },
              [&] {
                const QImage hovered = onScreen();
                EXPECT_EQ(hovered.pixelColor(rest.width() / 2, 0), QColor(skin::kEdgeDisabled));
                EXPECT_EQ(hovered.pixelColor(rest.width() / 2, 2), QColor(skin::kAccentLight));
                QTest::mouseMove(Window()->windowHandle(), {300, 300});
              },
              [&] {
                EXPECT_EQ(onScreen(), rest);
                Key(Qt::Key_Escape);
              }});
}

TEST_F(PreviewSteps, ArrowsShowThatTheyArePressedAndKeysTurnPages) {
  Preview(40, {[&] {
                 QWidget& arrow = Part("ImgSeta2");
                 const QPoint at = arrow.mapTo(Window(), arrow.rect().center());
                 const QImage rest = Look("ImgSeta2");
                 const QPoint edge(rest.width() / 2, 0);
                 EXPECT_EQ(rest.pixel(edge), rest.pixel(0, 0)) << "only the arrow itself";
                 QTest::mousePress(Window()->windowHandle(), Qt::LeftButton, {}, at);
                 EXPECT_EQ(Look("ImgSeta2").pixelColor(edge), QColor(0x3E7CB8));
                 QTest::mouseMove(Window()->windowHandle(), {300, 300});
                 QTest::mouseRelease(Window()->windowHandle(), Qt::LeftButton, {}, {300, 300});
                 EXPECT_EQ(reports.said, "[relatorio] 1 of 40\n") << "let go outside it is no click";
                 const QImage page = Look("PicXRel");
                 Click("ImgSeta2");
                 EXPECT_TRUE(reports.said.ends_with("] 2 de 40\n"));
                 EXPECT_NE(Look("PicXRel"), page) << "the page itself";
                 Key(Qt::Key_End);
                 EXPECT_TRUE(reports.said.ends_with("] 40 de 40\n"));
                 Key(Qt::Key_Home);
                 EXPECT_TRUE(reports.said.ends_with("] 1 de 40\n"));
               },
               [&] {
                 // A page is on the screen in a moment.
                 std::vector<qint64> times;
                 for (int turn = 0; turn < 30; ++turn) {
                   QElapsedTimer clock;
                   clock.start();
                   Key(Qt::Key_PageDown);
                   Part("PicXRel").repaint();
                   times.push_back(clock.elapsed());
                 }
                 std::sort(times.begin(), times.end());
                 RecordProperty("milliseconds of a turn", static_cast<int>(times[times.size() / 2]));
                 EXPECT_LT(times.front(), 50);
                 Click("TxtPagIni");
                 Key(Qt::Key_End);
                 for (int i = 0; i < 4; ++i) Key(Qt::Key_Backspace);
                 QTest::keyClick(Window()->windowHandle(), 'x');
                 QTest::keyClick(Window()->windowHandle(), '2');
                 Key(Qt::Key_Return);
                 for (int i = 0; i < 4; ++i) Key(Qt::Key_Backspace);
                 QTest::keyClick(Window()->windowHandle(), '3');
                 KeepLook(Look(), "previa_intervalo");
                 // The dialog of the system is left, and so is the box that says so.
                 QTimer leave;
                 std::string left;
                 leave.callOnTimeout([&left] {
                   QWidget* modal = QApplication::activeModalWidget();
                   if (modal == nullptr || modal->objectName() == "FrmXRel") return;
                   left += modal->objectName().toStdString() + " ";
                   QTest::keyClick(modal, Qt::Key_Escape);
                 });
                 leave.start(50);
                 Key(Qt::Key_P, Qt::ControlModifier);
                 EXPECT_EQ(left, "DialogoImpressora Mensagem ");
                 EXPECT_NE(Window(), nullptr) << "a cancel leaves the preview open";
               },
               [&] { Key(Qt::Key_Escape); }});
  EXPECT_TRUE(reports.said.ends_with("] 31 de 40\n1 printed\n")) << reports.said;
  EXPECT_FALSE(fs::exists(folder.path() / "XRel"));
}

}  // namespace

}  // namespace tessera::test
