// The looks of objects on a real window: what they paint in each state, what pointer, keys and clipboard do
// to them, and what assistive tools read.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QKeyEvent>
#include <QPointer>
#include <QTest>
#include <QWindow>
#include <set>
#include <string>

#include "objects/botao.h"
#include "objects/entry_control.h"
#include "objects/texto.h"
#include "qt/looks/look.h"
#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"

namespace tessera::test {

namespace {

class LooksOnWindows : public testing::Test {
 protected:
  void Start(std::string_view source, std::string_view routines = {}) {
    EditorTexts editors;
    editors[0] = FromSource(source);
    editors[1] = FromSource(routines);
    ASSERT_EQ(program.Start(editors, ""), RunOutcome::Ended);
    qt.ProcessEvents();
  }

  Form& Main() { return program.janela.windows().MainWindow(); }
  Control& Element(std::string_view array, int index) { return *Main().Controls().Element(array, index); }
  QWidget& WidgetOf(Control& control) { return static_cast<LookView&>(*control.View()).Widget(); }
  QWindow* Top() { return WidgetOf(Element("BtnNovo", 0)).window()->windowHandle(); }
  QPoint InWindow(QWidget& widget, QPoint at) { return widget.mapTo(widget.window(), at); }
  QImage Shown(Control& control) { return WidgetOf(control).grab().toImage(); }
  std::string Variable(std::string_view name) { return program.run.variables.VarRead(name).ToText(); }

  QtHost qt;
  RecordedBoxes boxes;
  Host host = qt.host();
  HostedProgram program{{boxes, qt, host.clock, host.random, host.files}, qt};
};

}  // namespace

TEST_F(LooksOnWindows, AButtonShowsEachOfItsStates) {
  for (const char* form : {"Botao B, 1, 1, 2, 12, \"Grava\"\n", "Botao B, \"Tipo0\", 1, 1, \"Grava\"\n"}) {
    HostedProgram fresh({boxes, qt, host.clock, host.random, host.files}, qt);
    EditorTexts editors;
    editors[0] = FromSource(form);
    ASSERT_EQ(fresh.Start(editors, ""), RunOutcome::Ended);
    qt.ProcessEvents();
    Control& button = *fresh.janela.windows().MainWindow().Controls().Element("BtnNovo", 0);
    QWidget& widget = WidgetOf(button);
    const auto shown = [&] { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); };
    QTest::mouseMove(widget.window()->windowHandle(), {400, 300});
    std::vector<QImage> states = {shown()};
    QTest::mouseMove(widget.window()->windowHandle(), InWindow(widget, widget.rect().center()));
    qt.ProcessEvents();
    states.push_back(shown());
    QTest::mousePress(widget.window()->windowHandle(), Qt::LeftButton, {},
                      InWindow(widget, widget.rect().center()));
    states.push_back(shown());
    QTest::mouseRelease(widget.window()->windowHandle(), Qt::LeftButton, {},
                        InWindow(widget, widget.rect().center()));
    button.SetEnabled(false);
    states.push_back(shown());
    for (std::size_t i = 0; i < states.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) EXPECT_NE(states[i], states[j]) << form << i << " looks like " << j;
    }
    EXPECT_EQ(fresh.run.variables.VarRead("TestaBotao").ToText(), "B");
  }
}

// A release outside is no click, and a click reaches no object below.
TEST_F(LooksOnWindows, AButtonLetGoOutsideIsNotClicked) {
  Start("Botao B, 1, 1, 2, 12, \"Grava\"\nRotulo R, \"abc\", 1, 30\n");
  QWidget& button = WidgetOf(Element("BtnNovo", 0));
  QTest::mousePress(Top(), Qt::LeftButton, {}, InWindow(button, {5, 5}));
  QTest::mouseMove(Top(), InWindow(button, {300, 5}));
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, InWindow(button, {300, 5}));
  EXPECT_EQ(Variable("TestaBotao"), "");
  EXPECT_EQ(Variable("CliqueMouse"), "");
}

TEST_F(LooksOnWindows, AssistiveToolsReadCaptionsAndNames) {
  Start(
      "Botao B, 1, 1, 2, 12, \"Grava\", \"\", \"Grava o registro\"\nTexto T, 4, 1, 20\nCheck C, 6, 1, "
      "\"Ativo\"\n"
      "Rotulo R, \"Nome\", 8, 1\nMoldura M, \"Ficha\", 9, 1, 4, 20\n");
  EXPECT_EQ(WidgetOf(Element("BtnNovo", 0)).accessibleName(), "Grava");
  EXPECT_EQ(WidgetOf(Element("BtnNovo", 0)).toolTip(), "Grava o registro");
  EXPECT_EQ(WidgetOf(Element("Texto", 0)).accessibleName(), "T");
  EXPECT_EQ(WidgetOf(Element("Chk", 0)).accessibleName(), "Ativo");
  EXPECT_EQ(WidgetOf(Element("LblRotulo", 0)).accessibleName(), "Nome");
  EXPECT_EQ(WidgetOf(Element("SpFrame", 0)).accessibleName(), "Ficha");
}

TEST_F(LooksOnWindows, TextGoesOverTheClipboardFromOneEntryToAnother) {
  Start(
      "Botao B, 1, 1\nTexto T, 4, 1, 20\nMascara M, \"###-##\", 6, 1, 20\nTexto N, 8, 1, 20\n"
      "Texto N.Numerico = \"SIM\"\nTexto T.Txt = \"a1b23c4,567\"\nTexto T.MoveFoco\n");
  QTest::keyClick(Top(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(Top(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "a1b23c4,567");
  QTest::keyClick(Top(), Qt::Key_Tab);
  QTest::keyClick(Top(), Qt::Key_Home);
  QTest::keyClick(Top(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Variable("M.Txt"), "123-45");
  QTest::keyClick(Top(), Qt::Key_Tab);
  QTest::keyClick(Top(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Variable("N.Txt"), "1234,56");
  QTest::keyClick(Top(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(Top(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Variable("N.Txt"), "");
  EXPECT_EQ(QApplication::clipboard()->text(), "1234,56");
}

// A number goes as it is shown, and a list's entry without the completion of its first letters.
TEST_F(LooksOnWindows, ShownNumbersAndChosenTextsArePasted) {
  Start(
      "Botao B, 1, 1\nMoeda A, 4, 1, 20\nMoeda D, 6, 1, 20\nTexto N, 8, 1, 20\nTexto N.Numerico = \"SIM\"\n"
      "Combo C, 10, 1, 20\nCombo C.Adiciona \"1.234.567,50 reais\"\nMoeda A.Valor = 1234567.5\nMoeda "
      "A.MoveFoco\n");
  QTest::keyClick(Top(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(Top(), Qt::Key_C, Qt::ControlModifier);
  ASSERT_EQ(QApplication::clipboard()->text(), "1.234.567,50");
  for (const std::string_view variable : {"D.Valor", "N.Txt", "C.Txt"}) {
    QTest::keyClick(Top(), Qt::Key_Tab);
    QTest::keyClick(Top(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Variable(variable), variable == "D.Valor" ? "1234567,5"
                                  : variable == "N.Txt" ? "1234567,50"
                                                        : "1.234.567,50")
        << variable;
  }
}

TEST_F(LooksOnWindows, ThePointerPlacesTheCaretAndSelects) {
  Start(
      "Botao B, 1, 1\nCombo C, 4, 1, 30\nTexto T, 7, 1, 30, 4\nTexto T.Txt = \"uma duas três\"\nCombo C.Txt "
      "= \"abcdef\"\n");
  QWidget& combo = WidgetOf(Element("Cmb", 0));
  const auto& entry = dynamic_cast<EntryControl&>(Element("Cmb", 0));
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {2, 10}));
  EXPECT_EQ(entry.Shown().caret, 0u);
  QTest::mousePress(Top(), Qt::LeftButton, {}, InWindow(combo, {6, 10}));
  QTest::mouseMove(Top(), InWindow(combo, {150, 10}));
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, InWindow(combo, {150, 10}));
  EXPECT_EQ(entry.Shown().selLength, 6u);
  QTest::keyClick(Top(), 'x');
  EXPECT_EQ(Variable("C.Txt"), "x");
  QWidget& lines = WidgetOf(Element("MultiLine", 0));
  QTest::mouseDClick(Top(), Qt::LeftButton, {}, InWindow(lines, {40, 10}));
  EXPECT_EQ(dynamic_cast<TextoControl&>(Element("MultiLine", 0)).State().SelText(), "duas");
}

// Up and Down follow the lines as they are folded on the screen.
TEST_F(LooksOnWindows, ALongLineFoldsAndTheCaretFollows) {
  Start(
      "Botao B, 1, 1\nTexto T, 4, 1, 12, 6\nTexto T.Txt = \"uma linha que dobra várias vezes\"\nTexto "
      "T.MoveFoco\n");
  const RichText& text = dynamic_cast<TextoControl&>(Element("MultiLine", 0)).State();
  QTest::keyClick(Top(), Qt::Key_Down);
  const std::size_t second = text.Caret();
  EXPECT_GT(second, 5u);
  QTest::keyClick(Top(), Qt::Key_Down);
  EXPECT_GT(text.Caret(), second);
  QTest::keyClick(Top(), Qt::Key_Up);
  QTest::keyClick(Top(), Qt::Key_Up);
  EXPECT_EQ(text.Caret(), 0u);
}

// The press of a button by key lets events through, and one of them may take the button away.
TEST_F(LooksOnWindows, AButtonMayGoInTheMiddleOfItsOwnPress) {
  Start("Botao A, 1, 1\nBotao B, 3, 1\nBotao B.MoveFoco\n");
  const QPointer<QWidget> widget = &WidgetOf(Element("BtnNovo", 1));
  QMetaObject::invokeMethod(
      qApp, [this] { program.commands.CommandCall("Botao", "B.Remove"); }, Qt::QueuedConnection);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QCoreApplication::sendEvent(widget, &press);
  EXPECT_EQ(Main().Controls().Element("BtnNovo", 1), nullptr);
  EXPECT_EQ(Variable("TestaBotao"), "");
  qt.ProcessEvents();
  EXPECT_EQ(widget, nullptr);
}

TEST_F(LooksOnWindows, WhatIsDroppedDownClosesWhereThePersonTurnsElsewhere) {
  Start("Botao B, 1, 1\nCombo C, 4, 1, 20\nCombo C.Adiciona \"um\"\nCombo C.Adiciona \"dois\"\n");
  QWidget& combo = WidgetOf(Element("Cmb", 0));
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  QWidget* list = QApplication::activePopupWidget();
  ASSERT_NE(list, nullptr);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(Variable("C.Txt"), "dois");
  EXPECT_FALSE(list->isVisible());
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  ASSERT_TRUE(list->isVisible());
  // A pointer that has picked is over the list's place, and no longer over the entry.
  combo.setAttribute(Qt::WA_UnderMouse, true);
  QTest::mouseClick(list, Qt::LeftButton, {}, {20, 30});
  EXPECT_FALSE(combo.underMouse());
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  QTest::mousePress(list, Qt::LeftButton, {}, {-50, -50});
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Variable("C.Txt"), "dois");
}

}  // namespace tessera::test
