// The looks of objects on a real window: what they paint in each state, what pointer, keys and clipboard do
// to them, and what assistive tools read.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QStyleHints>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <functional>

#include "objects/botao.h"
#include "objects/combo.h"
#include "objects/entry_control.h"
#include "objects/imagem.h"
#include "objects/texto.h"
#include "support/qt_window.h"
#include "support/temporary_folder.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

class LooksOnWindows : public QtWindowTest {
 protected:
  QImage Shown(Control& control) { return WidgetOf(control).grab().toImage(); }
  std::string Variable(std::string_view name) { return program.Read(name); }
};

}  // namespace

// What each gesture of the pointer is to each kind of object: a click sets the index of what was clicked, and
// reaches nothing below.
TEST_F(LooksOnWindows, OnlyAWholeClickOfTheLeftButtonIsOne) {
  Start(
      "Botao B, 1, 1, 2, 12, \"B\"\nCheck C, 4, 1, \"Check\"\nOpcao O, 6, 1, \"Opcao\"\nTexto T, 8, 1, 12\n"
      "Texto L, 10, 1, 12, 3\nGifAnimado S, GifSapo1, 0, 16, 1\nRotulo R, \"Nome\", 27, 1, 9, 2\nCombo K, "
      "14, 1, 9\nImagem I, \"\", 5, 40, 4, 9\n");
  const auto told = [&](const std::function<void()>& gesture) {
    program.run.variables.VarWrite("IndiceRef", Value(std::int32_t{99}), true);
    program.janela.windows().events.EventoClique.clear();
    gesture();
    return (Variable("IndiceRef") == "99" ? "-" : "click") + program.janela.windows().events.EventoClique;
  };
  for (Control* control : Main().Controls().InZOrder()) {
    if (!control->Visible()) continue;
    const QPoint in = InWindow(WidgetOf(*control), {9, 9});
    const QPoint out(400, 400);
    const std::string gif = control->Name() == "S" ? "CLIQUE" : "";
    EXPECT_EQ(told([&] { QTest::mouseClick(Top(), Qt::LeftButton, {}, in); }), "click" + gif)
        << control->Name();
    EXPECT_EQ(told([&] { QTest::mouseClick(Top(), Qt::RightButton, {}, in); }), "-") << control->Name();
    EXPECT_EQ(told([&] {
                QTest::mousePress(Top(), Qt::LeftButton, {}, in);
                QTest::mouseMove(Top(), out);
                QTest::mouseRelease(Top(), Qt::LeftButton, {}, out);
              }),
              "-")
        << control->Name();
    EXPECT_EQ(told([&] { QTest::mouseDClick(Top(), Qt::RightButton, {}, in); }), "-") << control->Name();
    const std::string twice = told([&] { QTest::mouseDClick(Top(), Qt::LeftButton, {}, in); });
    EXPECT_EQ(twice, gif.empty() ? "click" : "clickDUPLOCLIQUE") << control->Name();
  }
  // The second release of a double click is no click of its own.
  QWidget& label = WidgetOf(Element("LblRotulo", 0));
  QMouseEvent again(QEvent::MouseButtonDblClick, {9, 9}, label.mapToGlobal(QPointF(9, 9)), Qt::LeftButton,
                    Qt::LeftButton, {});
  QMouseEvent release(QEvent::MouseButtonRelease, {9, 9}, label.mapToGlobal(QPointF(9, 9)), Qt::LeftButton,
                      {}, {});
  EXPECT_EQ(told([&] { QApplication::sendEvent(&label, &again); }), "click");
  EXPECT_EQ(told([&] { QApplication::sendEvent(&label, &release); }), "-");
  EXPECT_EQ(told([&] { QApplication::sendEvent(&label, &release); }), "click");
  auto& image = dynamic_cast<ImagemControl&>(Element("Img", 0));
  EXPECT_EQ(told([&] { QApplication::sendEvent(&WidgetOf(image), &again); }), "click");
  EXPECT_EQ(image.MouseBotao(), 1) << "held as by any press";
  for (Control* control : Main().Controls().InZOrder()) {
    if (!control->Visible()) continue;
    control->SetEnabled(false);
    QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(WidgetOf(*control), {9, 9}));
  }
  EXPECT_EQ(Variable("CliqueMouse"), "");
}

TEST_F(LooksOnWindows, APointerThatOnlyPassesSelectsNothingAndTheSecondButtonNeither) {
  Start(
      "Botao B, 1, 1\nTexto T, 4, 1, 20\nTexto L, 7, 1, 20, 4\nTexto T.Txt = \"abcdef\"\nTexto L.Txt = "
      "\"abcdef\"\n");
  for (const bool isLong : {false, true}) {
    Control& control = isLong ? Element("MultiLine", 1) : Element("Texto", 0);
    const auto* text = &dynamic_cast<TextoControl&>(control).State();
    QWidget& widget = WidgetOf(control);
    const auto at = [&](int x) { return InWindow(widget, {x, 10}); };
    QTest::mouseClick(Top(), Qt::LeftButton, {}, at(3));
    EXPECT_EQ(text->Caret(), 0u);
    QTest::mouseMove(Top(), at(100));
    EXPECT_EQ(text->SelLength(), 0u);
    QTest::mouseClick(Top(), Qt::RightButton, {}, at(100));
    EXPECT_EQ(text->Caret(), 0u);
    QTest::mouseDClick(Top(), Qt::RightButton, {}, at(20));
    EXPECT_EQ(text->SelLength(), 0u);
    QTest::mousePress(Top(), Qt::LeftButton, {}, at(3));
    QTest::mouseMove(Top(), at(100));
    EXPECT_EQ(text->SelLength(), 6u);
    QTest::mouseRelease(Top(), Qt::LeftButton, {}, at(100));
    QTest::mouseMove(Top(), at(3));
    EXPECT_EQ(text->SelLength(), 6u) << "it was let go";
  }
}

// What an input method asks for, to stand beside the caret, and what it types.
TEST_F(LooksOnWindows, AnInputMethodFindsTheCaretAndTypes) {
  Start("Botao B, 1, 1\nCombo C, 4, 1, 20\nTexto L, 7, 1, 20, 4\n");
  for (const char* array : {"Cmb", "MultiLine"}) {
    Control& control = Element(array, 0);
    QWidget& widget = WidgetOf(control);
    Main().MoveFocus(&control);
    const auto caret = [&] { return widget.inputMethodQuery(Qt::ImCursorRectangle).toRectF(); };
    const double before = caret().left();
    QInputMethodEvent typed;
    typed.setCommitString("\u00e7\u00e3o");
    QApplication::sendEvent(&widget, &typed);
    EXPECT_EQ(Variable(array == std::string("Cmb") ? "C.Txt" : "L.Txt"), "\xE7\xE3o");
    EXPECT_GT(caret().left(), before + 8) << array;
    EXPECT_TRUE(QRectF(widget.rect()).contains(caret())) << array;
    EXPECT_TRUE(widget.inputMethodQuery(Qt::ImEnabled).toBool());
    control.SetEnabled(false);
    EXPECT_FALSE(widget.inputMethodQuery(Qt::ImEnabled).toBool());
  }
}

// The caret comes and goes, and shows at once where it is moved to.
TEST_F(LooksOnWindows, TheCaretBlinksAndShowsWhereItMoves) {
  QStyleHints& hints = *QGuiApplication::styleHints();
  const int usual = hints.cursorFlashTime();
  hints.setCursorFlashTime(400);
  Start(
      "Botao B, 1, 1\nCombo C, 4, 1, 20\nTexto L, 7, 1, 20, 4\nCombo C.Txt = \"aa\"\nTexto L.Txt = \"aa\"\n");
  for (const char* array : {"Cmb", "MultiLine"}) {
    Control& control = Element(array, 0);
    Main().MoveFocus(&control);
    QTest::keyClick(Top(), Qt::Key_Home);
    const QImage lit = Shown(control);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(control) != lit; })) << array;
    QTest::keyClick(Top(), Qt::Key_Right);
    QTest::keyClick(Top(), Qt::Key_Left);
    EXPECT_EQ(Shown(control), lit) << array;
  }
  hints.setCursorFlashTime(usual);
}

TEST_F(LooksOnWindows, TheCursorTellsWhatThePointerIsOver) {
  Start(
      "Botao B, 1, 1\nCombo C, 4, 1, 20\nTexto T, 7, 1, 20, 4\nLink L, 12, 1, \"a\", \"b\"\nImagem I, \"\", "
      "14, 1, 3, 8\n");
  QWidget& combo = WidgetOf(Element("Cmb", 0));
  QTest::mouseMove(Top(), InWindow(combo, {combo.width() - 8, 10}));
  EXPECT_EQ(combo.cursor().shape(), Qt::ArrowCursor);
  QTest::mouseMove(Top(), InWindow(combo, {20, 10}));
  EXPECT_EQ(combo.cursor().shape(), Qt::IBeamCursor);
  EXPECT_EQ(WidgetOf(Element("MultiLine", 0)).cursor().shape(), Qt::IBeamCursor);
  for (Control* control : Main().Controls().InZOrder()) {
    if (!control->Visible()) continue;
    QWidget& widget = WidgetOf(*control);
    EXPECT_EQ(widget.cursor().shape() == Qt::PointingHandCursor, control->Name() == "L");
    if (control->Name() != "I") continue;
    auto& surface = dynamic_cast<ImagemControl&>(*control).surface();
    surface.SetMouseIcon(StockPicture(StockKind::Figure, 0));
    EXPECT_EQ(widget.cursor().shape(), Qt::BitmapCursor);
    surface.SetMouseIcon(nullptr);
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
  }
}

TEST_F(LooksOnWindows, AssistiveToolsReadCaptionsAndNames) {
  Start(
      "Botao B, 1, 1, 2, 12, \"Grava\", \"\", \"Grava o registro\"\nTexto T, 4, 1, 20\nCheck C, 6, 1, "
      "\"Ativo\"\n"
      "Rotulo R, \"Nome\", 8, 1\nMoldura M, \"Ficha\", 9, 1, 4, 20\nLink L, 14, 1, \"Ajuda\", \"x\"\n");
  EXPECT_EQ(WidgetOf(Element("BtnNovo", 0)).accessibleName(), "Grava");
  EXPECT_EQ(WidgetOf(Element("BtnNovo", 0)).toolTip(), "Grava o registro");
  EXPECT_EQ(WidgetOf(Element("Texto", 0)).accessibleName(), "T");
  EXPECT_EQ(WidgetOf(Element("Chk", 0)).accessibleName(), "Ativo");
  EXPECT_EQ(WidgetOf(Element("LblRotulo", 0)).accessibleName(), "Nome");
  EXPECT_EQ(WidgetOf(Element("SpFrame", 0)).accessibleName(), "Ficha");
  EXPECT_EQ(WidgetOf(Element("TxtLink", 0)).accessibleName(), "Ajuda");
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
// One that has no size of its own shows what one with room to spare does.
TEST_F(LooksOnWindows, ALabelIsAsLargeAsItsLines) {
  for (const char* lines : {"\"Segunda, bem mais longa\"", "\"A fila: 9 a\" & Car(10) & \"Uma linha larga\"",
                            "\"Uma\" & Car(13) & Car(10) & \"duas, e mais larga\" & Car(13) & \"fim\""}) {
    Start("Var t String\nt = " + std::string(lines) + "\nRotulo R, t, 1, 1\nRotulo S, t, 10, 1, 50\n");
    std::vector<QImage> pictures;
    for (Control* control : Main().Controls().InZOrder()) {
      if (control->Name() == "R" || control->Name() == "S") pictures.push_back(Shown(*control));
    }
    ASSERT_EQ(pictures.size(), 2U);
    const QSize own = pictures[0].size();
    EXPECT_LT(own.width(), 300) << lines;
    EXPECT_EQ(pictures[0], pictures[1].copy(QRect(QPoint(), own))) << lines;
    EXPECT_EQ(own.height(), pictures[1].height()) << lines;
    program.run.doors.CommandCall("Rotulo", "R.Remove");
    program.run.doors.CommandCall("Rotulo", "S.Remove");
  }
}

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
TEST_F(LooksOnWindows, AHeldButtonIsPressedWhileThePointerIsOverIt) {
  Start("Botao A, 1, 1\nBotao B, 4, 1\nBotao A.MoveFoco\n");
  const QPoint over = InWindow(WidgetOf(Element("BtnNovo", 1)), {5, 5});
  const QImage rest = Shown(Element("BtnNovo", 1));
  QTest::mousePress(Top(), Qt::LeftButton, {}, over);
  const QImage held = Shown(Element("BtnNovo", 1));
  EXPECT_NE(held, rest);
  QTest::mouseMove(Top(), over + QPoint(200, 0));
  EXPECT_NE(Shown(Element("BtnNovo", 1)), held);
  QTest::mouseMove(Top(), over);
  EXPECT_EQ(Shown(Element("BtnNovo", 1)), held);
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, over);
}

TEST_F(LooksOnWindows, AButtonMayGoInTheMiddleOfItsOwnPress) {
  Start("Botao A, 1, 1\nBotao B, 3, 1\nBotao B.MoveFoco\n");
  const QPointer<QWidget> widget = &WidgetOf(Element("BtnNovo", 1));
  QMetaObject::invokeMethod(
      qApp, [this] { program.commands.CommandCall("Botao", "B.Remove"); }, Qt::QueuedConnection);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QCoreApplication::sendEvent(widget, &press);
  ASSERT_NE(widget, nullptr);
  EXPECT_FALSE(widget->isVisible());
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
  // The first row begins behind the frame, and its last pixel is its own.
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  const int row = static_cast<int>(dynamic_cast<ComboControl&>(Element("Cmb", 0)).RowHeight());
  QTest::mouseClick(list, Qt::LeftButton, {}, {20, row});
  EXPECT_EQ(Variable("C.Txt"), "um");
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  QTest::mouseClick(list, Qt::LeftButton, {}, {20, row + 2});
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  QTest::mousePress(list, Qt::LeftButton, {}, {-50, -50});
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Variable("C.Txt"), "dois");
  EXPECT_FALSE(dynamic_cast<ComboControl&>(Element("Cmb", 0)).State().ListIsOpen());
  // Opened and closed without the pointer, that is where it was.
  dynamic_cast<ComboControl&>(Element("Cmb", 0)).ArrowClick();
  ASSERT_TRUE(list->isVisible());
  combo.setAttribute(Qt::WA_UnderMouse, true);
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_FALSE(list->isVisible());
  EXPECT_TRUE(combo.underMouse());
}

TEST_F(LooksOnWindows, WhatIsDroppedDownStaysOnTheScreen) {
  Start("Botao B, 1, 1\nCombo C, 4, 1, 20\nCombo C.Adiciona \"um\"\n");
  QWidget& combo = WidgetOf(Element("Cmb", 0));
  const QRect screen = combo.screen()->availableGeometry();
  for (const QPoint corner :
       {QPoint(20, 20), QPoint(-60, 20), QPoint(screen.width() - 80, 20), QPoint(20, screen.height() - 80)}) {
    Top()->setPosition(corner);
    qt.ProcessEvents();
    QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
    const QWidget* list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    const QRect entry(combo.mapToGlobal(QPoint(0, 0)), combo.size());
    const bool isAbove = corner.y() > 20;
    EXPECT_EQ(isAbove ? list->geometry().bottom() + 1 : list->y(),
              isAbove ? entry.top() : entry.bottom() + 1);
    EXPECT_NEAR(list->x(), std::clamp(entry.left(), 0, screen.width() - list->width() - 1), 2) << corner.x();
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  }
}

TEST_F(LooksOnWindows, TheMonthIsTurnedAndADayPickedByThePointer) {
  Start("Botao B, 1, 1\nCalendario D, 4, 1, 20\nCalendario D.Txt = \"05/03/2009\"\n");
  QWidget* field = nullptr;
  for (Control* control : Main().Controls().InZOrder()) {
    if (control->Name() == "D") field = &WidgetOf(*control);
  }
  const auto open = [&] {
    QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(*field, {field->width() - 8, 10}));
    return QApplication::activePopupWidget();
  };
  // Sundays lead the rows; March 2009 begins with one, and so does the row of April that has the 5th.
  struct Row {
    QPoint turn;
    QPoint day;
    const char* date;
  };
  for (const Row& row : {Row{{}, {20, 60}, "01/03/2009"}, Row{{205, 14}, {20, 82}, "05/04/2009"},
                         Row{{17, 14}, {200, 148}, "04/04/2009"}, Row{{}, {3, 60}, "04/04/2009"}}) {
    QWidget* month = open();
    ASSERT_NE(month, nullptr);
    if (!row.turn.isNull()) QTest::mouseClick(month, Qt::LeftButton, {}, row.turn);
    QTest::mouseClick(month, Qt::LeftButton, {}, row.day);
    EXPECT_EQ(Variable("D.Txt"), row.date);
    if (month->isVisible()) QTest::keyClick(month, Qt::Key_Escape);
  }
  QWidget* month = open();
  QTest::mousePress(month, Qt::LeftButton, {}, {-50, -50});
  EXPECT_FALSE(month->isVisible());
  EXPECT_EQ(open(), month) << "it was closed, for the logic too";
}

// An entry with a mask writes its variable then. A key that is held comes again and again, and is not let go.
TEST_F(LooksOnWindows, AKeyIsToldWhenItIsLetGo) {
  Start("Mascara M, \"###\", 4, 1, 20\nMascara M.MoveFoco\n");
  program.run.variables.VarWrite("M.Txt", Value(std::string("?")), false);
  QKeyEvent held(QEvent::KeyRelease, Qt::Key_1, {}, "1", true);
  QApplication::sendEvent(&WidgetOf(*Main().Focus()), &held);
  EXPECT_EQ(Variable("M.Txt"), "?");
  QTest::keyRelease(Top(), Qt::Key_1);
  EXPECT_EQ(Variable("M.Txt"), "___");
}

TEST_F(LooksOnWindows, PicturesLieOverOneAnotherAsTheProgramOrders) {
  Start("Imagem A, \"\", 1, 1, 6, 20\nImagem B, \"\", 3, 3, 6, 20\n");
  const auto above = [&] {
    return static_cast<QtForm&>(Main()).widget()->childAt(40, 60)->objectName().toStdString();
  };
  std::string order = above();
  for (const std::string_view word : {"A.Ordem = \"frente\"", "A.Ordem = \"atras\"", "B.Ordem = \"atras\""}) {
    program.commands.CommandCall("Imagem", word);
    order += " " + above();
  }
  EXPECT_EQ(order, "B A B A");
}

// Red above green, in its own size and stretched; a floating one lets the pointer through.
TEST_F(LooksOnWindows, TheFramesOfAFileAreShownInTheSizeOfTheirObject) {
  using namespace std::string_literals;
  const TemporaryFolder folder;
  folder.Write("a.gif",
               "GIF89a\x02\0\x02\0\x80\0\0\xFF\0\0\0\xFF\0,\0\0\0\0\x02\0\x02\0\0\x02\x03\x04\x98\x14\0;"s);
  const std::string file = "\"" + (folder / "a.gif") + "\"";
  Start("Botao B, 1, 1\nGifAnimado G, " + file + ", 0, 4, 1\nGifAnimado F, " + file + ", 1, 4, 9\n");
  Control& placed = Element("GifAni", 0);
  const QImage own = Shown(placed);
  ASSERT_EQ(own.size(), QSize(2, 2));
  EXPECT_EQ(own.pixelColor(1, 0), QColor(Qt::red));
  EXPECT_EQ(own.pixelColor(1, 1), QColor(Qt::green));
  program.commands.CommandCall("GifAnimado", "G.Altura = 2");
  const QImage tall = Shown(placed);
  ASSERT_EQ(tall.size(), QSize(2, 28));
  EXPECT_EQ(tall.pixelColor(1, 0), QColor(Qt::red));
  EXPECT_EQ(tall.pixelColor(1, 27), QColor(Qt::green));
  EXPECT_GT(tall.pixelColor(1, 14).red() * tall.pixelColor(1, 14).green(), 0)
      << "one goes over into the other";
  const QWidget& window = *static_cast<QtForm&>(Main()).widget();
  EXPECT_EQ(window.childAt(9, 57), &WidgetOf(placed));
  EXPECT_EQ(window.childAt(73, 57), nullptr);
}

TEST_F(LooksOnWindows, TheBarOfMenusIsAsWideAsItsWindowWhoeverChangesThat) {
  Start("MenuSistema \"GUIA\", 0, \"\", \"Arq\"\n");
  QWidget& window = *static_cast<QtForm&>(Main()).widget();
  window.resize(500, 300);
  EXPECT_EQ(window.childAt(499, 5), window.childAt(5, 5));
  EXPECT_EQ(window.childAt(5, 5)->width(), 500);
}

// A notch of the wheel, over what takes it.
TEST_F(LooksOnWindows, TheWheelTurnsListsTextsAndBars) {
  Start(
      "Botao B, 1, 1\nCombo C, 4, 1, 20\nCombo C.Linhas = 3\nTexto L, 7, 1, 20, 4\nBarraRolagem R, 100, 14, "
      "1, 1, 40\n"
      "BarraRolagem R.PassoMenor = 5\nTexto L.Txt = \"a b c d e f g h i j k l m n o p q r s t u v a b c d e "
      "f g h i j k l m n o p q r s t u v "
      "a b c d e f g h i j k l m n o p q r s t u v a b c d e f g h i j k l m n o p q r s t u v x\"\n");
  for (int i = 0; i < 9; ++i) program.commands.CommandCall("Combo", "C.Adiciona \"a\"");
  const auto turn = [](QWidget& widget, QPoint angle) {
    QWheelEvent wheel(QPointF(9, 9), widget.mapToGlobal(QPointF(9, 9)), {}, angle, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &wheel);
  };
  QWidget& combo = WidgetOf(Element("Cmb", 0));
  QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(combo, {combo.width() - 8, 10}));
  const SpCombo& list = dynamic_cast<ComboControl&>(Element("Cmb", 0)).State();
  turn(*QApplication::activePopupWidget(), {0, -120});
  EXPECT_EQ(list.FirstVisible(), 3);
  turn(*QApplication::activePopupWidget(), {0, 40});
  EXPECT_EQ(list.FirstVisible(), 2);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  QWidget& bar = WidgetOf(Element("BarHor", 0));
  for (const QPoint angle : {QPoint(0, -120), QPoint(-120, 0), QPoint(0, 0), QPoint(0, 120), QPoint(0, -120)})
    turn(bar, angle);
  EXPECT_EQ(Variable("R.Valor"), "10");
  const QPoint arrow = InWindow(bar, {bar.width() - 3, 8});
  QTest::mousePress(Top(), Qt::LeftButton, {}, arrow);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Variable("R.Valor") > "15"; })) << "held, it goes on";
  QTest::mouseRelease(Top(), Qt::LeftButton, {}, arrow);
  const std::string stopped = Variable("R.Valor");
  QTest::qWait(200);
  EXPECT_EQ(Variable("R.Valor"), stopped);
  QWidget& text = WidgetOf(Element("MultiLine", 0));
  const QImage begin = Shown(Element("MultiLine", 0));
  turn(text, {0, 120});
  EXPECT_EQ(Shown(Element("MultiLine", 0)), begin) << "no further than its begin";
  turn(text, {0, -120});
  EXPECT_NE(Shown(Element("MultiLine", 0)), begin);
  turn(text, {0, 120});
  EXPECT_EQ(Shown(Element("MultiLine", 0)), begin);
}

}  // namespace tessera::test
