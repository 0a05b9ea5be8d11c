// Windows that an event script leads: what they show, and what they keep a person from.
#include "qt/qt_stage.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <QTest>
#include <sstream>

#include "console/console_host.h"
#include "support/console_case.h"
#include "support/qt_window.h"
#include "support/table.h"
#include "support/temporary_folder.h"

namespace tessera::test {

namespace {

// Plays a script, and acts on the real window between two of its lines: at the line `espera`, which lets a
// timer of the program run, whose routine prints.
class OnStage : public testing::Test {
 protected:
  int Run(const std::string& program, const std::string& script) {
    std::istringstream in(script);
    const auto codec = [] { return FoundCodec{&TestCodec(), {}}; };
    ConsoleHost host({.in = in, .out = out_, .err = err_},
                     {.programTitle = "TESTE", .stage = &stage_, .findCodec = codec});
    HostedProgram hosted(host.host(), host);
    return hosted.Run(program);
  }

  QtHost qt_;
  QtStage stage_{qt_};
  std::ostringstream out_;
  std::ostringstream err_;
};

// Whether the screen has a pixel of the window there that is darker than its ground, as letters are.
bool HasInk(QWidget& window, const QRect& area) {
  const QImage grabbed = window.screen()->grabWindow(window.winId()).toImage().copy(area);
  for (int y = 0; y < grabbed.height(); ++y) {
    for (int x = 0; x < grabbed.width(); ++x) {
      if (qGray(grabbed.pixel(x, y)) < 80) return true;
    }
  }
  return false;
}

// Looks at the program's window, or acts on it, once the program has printed something.
class Intruder {
 public:
  Intruder(const std::ostringstream& printed, std::function<void(QWidget&)> act) {
    timer_.callOnTimeout([this, &printed, act = std::move(act)] {
      QWidget* window = WidgetNamed("Janela");
      if (window == nullptr || hasActed || printed.view().empty()) return;
      hasActed = true;
      act(*window);
    });
    timer_.start(1);
  }
  bool hasActed = false;

 private:
  QTimer timer_;
};

}  // namespace

class OutputsOnStage : public testing::TestWithParam<Table> {};

// What the console host writes without windows.
TEST_P(OutputsOnStage, AreThoseOfTheTable) {
  for (const auto& [given, result] : GetParam().cases) {
    QtHost qt;
    QtStage stage(qt);
    EXPECT_EQ(OutputOf(given, &stage), result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(Console, OutputsOnStage, testing::ValuesIn(TablesOf("console/outputs.txt")),
                         NameOfTable);

TEST_F(OnStage, AWindowShowsWhatTheScriptBroughtAbout) {
  bool hasInk = false;
  Intruder looking(out_, [&](QWidget& window) {
    hasInk = QTest::qWaitFor([&] { return HasInk(window, QRect(0, 0, 200, 30)); }, 500);
    EXPECT_EQ(window.size(), QSize(160, 147));
  });
  EXPECT_EQ(Run("Aguarde 0\nPosicione 0, 1\nEscreva \"MMMM\"\nAguarde 40\n", "redim 10 20\nmouse 1 1\n"), 0);
  EXPECT_TRUE(looking.hasActed);
  EXPECT_TRUE(hasInk);
  EXPECT_EQ(out_.str(), "MMMM\n");
}

TEST_F(OnStage, APortraitHasWhatWasDrawnLast) {
  const TemporaryFolder folder;
  EXPECT_EQ(
      Run("Aguarde 0\nCirculo 2, 4, 3, 255\nAguarde 0\n", "mouse 1 1\nretrato " + (folder / "r.png") + "\n"),
      0);
  const QImage portrait(QString::fromStdString(folder / "r.png"));
  EXPECT_EQ(portrait.pixel(32, 28), qRgb(255, 0, 0));
}

TEST_F(OnStage, APersonDoesNotReachTheProgram) {
  Intruder person(out_, [](QWidget& window) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(30, 30));
    QTest::keyClick(window.windowHandle(), Qt::Key_F6);
    window.windowHandle()->close();
    EXPECT_TRUE(window.isVisible());
    window.resize(700, 500);
    window.move(5, 6);
  });
  EXPECT_EQ(Run("Escreva 1\nAguarde 40\nEscreva CliqueMouse, \" \", Evento(\"REDIM\"), Evento(\"CLIQUE\"),"
                " Evento(\"TECLADO\")\nEscreva AlturaJanela()\n",
                "mouse 1 1\n"),
            0);
  EXPECT_TRUE(person.hasActed);
  EXPECT_EQ(out_.str(), "1\n \n30\n") << err_.str();
}

// The window toolkit would first have it out of the way.
TEST_F(OnStage, AFurtherWindowLeavesADroppedViewOpen) {
  EXPECT_EQ(Run("NovaJanela Define, Outra\nCalendario D, 1, 1\nCalendario D.Txt = \"01/02/2020\"\nAguarde 0\n"
                "NovaJanela Outra.Use\nNovaJanela Pai.Use\nAguarde 0\nAguarde 0\nEscreva D.Txt\n",
                "abre D\ntecla 39\ntecla 13\n"),
            0);
  EXPECT_EQ(out_.str(), "02/02/2020\n") << err_.str();
}

TEST_F(OnStage, AFaultyLineEndsTheRunWithItsNumber) {
  EXPECT_EQ(Run("Aguarde CliqueBotao\n", "\nclique Ninguem\n"), 3);
  EXPECT_EQ(err_.str(), "[roteiro] linha 2: objeto desconhecido: Ninguem\n");
}

}  // namespace tessera::test
