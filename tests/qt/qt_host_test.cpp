#include "qt/qt_host.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <ctime>
#include <thread>

#include "qt/boxes.h"
#include "qt/form_acts.h"
#include "qt/key_codes.h"
#include "qt/logic_entry.h"
#include "qt/print_surface.h"
#include "qttext/fonts.h"
#include "qttext/qt_text_painter.h"
#include "qttext/text.h"
#include "support/qt_window.h"
#include "windows/act_line.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

class QtHostTest : public testing::Test {
 protected:
  // What the program left in a variable.
  std::string Variable(std::string_view name) { return program.Read(name); }

  // Whether the program has come to its `FimPrograma`.
  std::function<bool()> ProgramEnded() {
    return [this] { return program.run.StopFlag; };
  }

  int Run(std::string_view source, std::string_view routines = {}) { return program.Run(source, routines); }

  QtHost host;
  HostedProgram program{host.host(), host};
};

TEST_F(QtHostTest, WhatAnotherThreadPostsRunsInADispatchInItsOrder) {
  std::string seen;
  std::thread([&] {
    for (const char mark : {'a', 'b', 'c'}) host.Post([&, mark] { seen += mark; });
  }).join();
  EXPECT_EQ(seen, "");
  host.ProcessEvents();
  EXPECT_EQ(seen, "abc");
  std::thread late([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    host.Post([&] { seen += "d"; });
  });
  while (seen != "abcd") host.AwaitNextEvents();
  late.join();
}

void Close(QWidget& widget) {
  widget.close();
}

int DarkPixels(const QImage& picture, const QRect& area) {
  int dark = 0;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) dark += qGray(picture.pixel(x, y)) < 128;
  }
  return dark;
}

}  // namespace

TEST_F(QtHostTest, AnImmenseWindowIsShownAsFarAsALargeDesktopReaches) {
  const When<> when("Janela", [&](QWidget& window) {
    EXPECT_EQ(window.size(), QSize(4096, 4096));
    EXPECT_EQ(program.janela.form().ScaleWidth(), 6000 * 8) << "what was shown is no news to the program";
    Close(window);
  });
  Run("Janela Tamanho = 3000, 6000\nAguarde 0\n");
}

TEST_F(QtHostTest, TheWindowIsPaintedBeforeTheFirstStatementAndClosingItAfterTheEndEndsTheProcess) {
  bool wasPainted = false;
  AtWord(program.run, "LePorta", [&](std::string_view) {
    QWidget* janela = WidgetNamed("Janela");
    wasPainted = janela != nullptr && janela->windowHandle()->isExposed();
    return Value();
  });
  QString title;
  When<> closing("Janela", [&](QWidget& janela) {
    title = janela.windowTitle();
    janela.close();
  });
  EXPECT_EQ(Run("LePorta\n"), 0);
  EXPECT_TRUE(wasPainted);
  EXPECT_EQ(title, "Tessera - TESTE.TSC");
  EXPECT_EQ(WidgetNamed("Janela"), nullptr);
}

TEST_F(QtHostTest, AnAbandonedRunIsSilentAndLeavesTheWindowOpen) {
  When<> closing("Janela", Close);
  EXPECT_EQ(Run("Var a(2) Inteiro\na(9) = 1\n"), 1);
}

// Nothing enters while the window is shown for the first time, and this program lets nothing in later.
TEST_F(QtHostTest, AWindowThatIsClosedWhileItIsFirstShownEndsTheProcess) {
  bool isClosed = false;
  QTimer closing;
  closing.callOnTimeout([&] {
    QWidget* janela = WidgetNamed("Janela");
    if (janela != nullptr && !std::exchange(isClosed, true)) janela->close();
  });
  closing.start(0);
  EXPECT_EQ(Run("Var n Inteiro\nn = 1\n"), 0);
  EXPECT_TRUE(isClosed);
}

TEST_F(QtHostTest, TicksNestInOneAnother) {
  When<> closing("Janela", [](QWidget& janela) { QTimer::singleShot(300, &janela, &QWidget::close); });
  // Each tick waits, and lets the next one in on top of it.
  Run("Var fundo Inteiro, maior Inteiro\nAguarde 1\n",
      "Sub Temporizador_a(1)\nfundo++\nSe fundo > maior\nmaior = fundo\nFimSe\n"
      "Se fundo < 6\nAguarde 30\nFimSe\nfundo--\nFimSub\n");
  EXPECT_EQ(Variable("maior"), "6");
}

TEST_F(QtHostTest, ATimersSubThatClosesTheWindowEndsABoxThatIsOpenBelowIt) {
  When<> shown("Mensagem", [](QWidget&) {});
  EXPECT_EQ(Run("Var depois Inteiro\nMensagem \"espera\"\ndepois = 1\n",
                "Sub Temporizador_a(20)\nFimJanela\nFimSub\n"),
            0);
  EXPECT_EQ(Variable("depois"), "0");
}

TEST_F(QtHostTest, AMessageHasItsTitleIconTextAndButtons) {
  When<QMessageBox> ok("Mensagem", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "TESTE");
    EXPECT_EQ(box.icon(), QMessageBox::Information);
    EXPECT_EQ(box.text(), QStringLiteral("Olá <b>1</b>"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.buttons().size(), 1);
    QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
  });
  Run("Mensagem \"Olá <b>\", 1, \"</b>\"\nFimJanela\n");
}

TEST_F(QtHostTest, AYesNoMessageStandsOnNo) {
  struct Row {
    Qt::Key key;
    const char* answer;
  };
  for (const Row& row : {Row{Qt::Key_Return, "NAO"}, Row{Qt::Key_Escape, "NAO"}, Row{Qt::Key_S, "SIM"}}) {
    QtHost anotherHost;
    HostedProgram another(anotherHost.host(), anotherHost);
    When<QMessageBox> asked("Mensagem", [&](QMessageBox& box) {
      EXPECT_EQ(box.icon(), QMessageBox::Question);
      EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "&Sim");
      EXPECT_EQ(box.button(QMessageBox::No)->text(), QStringLiteral("&Não"));
      EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
      QTest::keyClick(&box, row.key, row.key == Qt::Key_S ? Qt::AltModifier : Qt::NoModifier);
    });
    another.Run("Var r String\nr = Mensagem(\"OPCAOSIMNAO\", \"Apaga?\")\nFimJanela\n");
    EXPECT_EQ(another.Read("r"), row.answer);
  }
}

TEST(Boxes, AnOkCancelMessageHasItsTwoButtonsWithoutTheToolkitsOwnTexts) {
  struct Row {
    Qt::Key key;
    BoxAnswer answer;
  };
  Box box;
  box.buttons = BoxButtons::OkCancel;
  for (const Row& row : {Row{Qt::Key_Return, BoxAnswer::Ok}, Row{Qt::Key_Escape, BoxAnswer::Cancel}}) {
    When<QMessageBox> asked("Mensagem", [&](QMessageBox& shown) {
      EXPECT_EQ(shown.buttons().size(), 2);
      EXPECT_EQ(shown.button(QMessageBox::Cancel)->text(), "Cancelar");
      QTest::keyClick(&shown, row.key);
    });
    EXPECT_EQ(ShowMessageBox(box, nullptr), row.answer);
  }
}

TEST_F(QtHostTest, ATickThatFellDueIsDroppedWithItsTimer) {
  int ticks = 0;
  auto timer = host.StartTimer(std::chrono::milliseconds(1), [&] { ++ticks; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }));
  bool isDone = false;
  host.Post([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    QCoreApplication::processEvents();  // which posts the tick
    timer.reset();
    const int before = ticks;
    host.ProcessEvents();
    EXPECT_EQ(ticks, before);
    isDone = true;
  });
  host.ProcessEvents();
  EXPECT_TRUE(isDone);
}

// What changes nothing but the sight of a thing comes through while a person writes a script, and is held
// else.
TEST(LogicEntry, AGlanceComesThroughWhereNothingEnters) {
  int seen = 0;
  LogicEntry entry([] {});
  {
    const LogicEntry::Hold hold(entry);
    entry.Glance([&] { ++seen; });
    EXPECT_EQ(seen, 0);
  }
  EXPECT_EQ(seen, 1);
  entry.Close();
  entry.Glance([&] { ++seen; });
  EXPECT_EQ(seen, 1);
  entry.TellActs([](const PersonAct&) {});
  entry.Glance([&] { ++seen; });
  entry.Enter([&] { ++seen; });
  EXPECT_EQ(seen, 2);
}

TEST(KeyCodes, EachKeyHasTheCodeOfTheLanguage) {
  struct Row {
    int key;
    int code;
    Qt::KeyboardModifiers modifiers = {};
  };
  for (const Row& row :
       {Row{Qt::Key_A, 65}, Row{Qt::Key_Z, 90}, Row{Qt::Key_0, 48}, Row{Qt::Key_9, 57}, Row{Qt::Key_F1, 112},
        Row{Qt::Key_F12, 123}, Row{Qt::Key_F13, 0}, Row{Qt::Key_At, 0}, Row{Qt::Key_BracketLeft, 0},
        Row{Qt::Key_Comma, 188}, Row{Qt::Key_0, 96, Qt::KeypadModifier},
        Row{Qt::Key_9, 105, Qt::KeypadModifier}, Row{Qt::Key_Enter, 13}}) {
    EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers)), row.code) << row.key;
  }
}

TEST(FormActs, AKeyIsToldByItselfOrWithItsShift) {
  EXPECT_EQ(KeyDownLine(65, {}), "aperta 65");
  EXPECT_EQ(KeyDownLine(65, {.shift = true}), KeyLine(65, {.shift = true}));
  EXPECT_EQ(KeyDownLine(16, {.shift = true}), "aperta 16");
  EXPECT_EQ(KeyDownLine(17, {.ctrl = true}), "aperta 17");
  EXPECT_EQ(KeyDownLine(0, {}) + KeyUpLine(0), "");
}

TEST_F(QtHostTest, TheInputFormAnswersItsTextTheCancelWordOrThePrompt) {
  struct Row {
    const char* way;
    const char* answer;
  };
  for (const Row& row : {Row{"enter", "Bia"}, Row{"cancelar", "CANCELADO"}, Row{"escape", "CANCELADO"},
                         Row{"moldura", "Nome"}}) {
    QtHost anotherHost;
    HostedProgram another(anotherHost.host(), anotherHost);
    When<> asked("EntraTxt", [&](QWidget& form) {
      auto* texto = form.findChild<QLineEdit*>("TxtTexto");
      EXPECT_EQ(form.windowTitle(), "TESTE");
      EXPECT_EQ(form.findChild<QLabel*>("LblRotulo")->text(), "Nome");
      EXPECT_EQ(texto->selectedText(), "Ana");
      EXPECT_EQ(texto->accessibleName(), "Nome");
      EXPECT_GE(texto->width(), 320) << "room for a line, however short the prompt is";
      EXPECT_EQ(form.findChild<QLabel*>("LblRotulo")->textFormat(), Qt::PlainText);
      EXPECT_GT(texto->y(), form.findChild<QLabel*>("LblRotulo")->geometry().bottom());
      EXPECT_TRUE(texto->hasFocus());
      const auto* ok = form.findChild<QPushButton*>("BtnOK");
      EXPECT_FALSE(ok->isDefault()) << "Enter does not press it from the field";
      EXPECT_EQ(ok->y(), form.findChild<QPushButton*>("BtnCancelar")->y());
      const std::string way = row.way;
      if (way == "enter") {
        QTest::keyClicks(texto, "Bia");  // over the selected first content
        QTest::keyClick(texto, Qt::Key_Return);
        EXPECT_TRUE(ok->hasFocus());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      } else if (way == "cancelar") {
        QTest::mouseClick(form.findChild<QPushButton*>("BtnCancelar"), Qt::LeftButton);
      } else if (way == "escape") {
        QTest::keyClick(&form, Qt::Key_Escape);
      } else {
        form.close();
      }
    });
    another.Run("Var r String\nr = EntraTexto(\"Nome\", \"Ana\")\nFimJanela\n");
    EXPECT_EQ(another.Read("r"), row.answer) << row.way;
  }
}

TEST_F(QtHostTest, PrintsStandAtTheTextCursorAndSurviveASmallerWindow) {
  QImage before;
  QImage after;
  const auto look = [&](QWidget& janela) {
    before = janela.grab().toImage();
    const QSize size = janela.size();
    janela.resize(40, 20);
    janela.resize(size);
    after = janela.grab().toImage();
    janela.close();
  };
  When<> shown("Janela", look, ProgramEnded());
  Run("Escreva \"primeira linha\"\nPosicione 5, 10\nEscreva \"outra\"\nFonte Cor = Vermelho\nEscreva "
      "\"vermelha\"\nFimPrograma\n");
  EXPECT_EQ(before.size(), QSize(640, 420));
  EXPECT_EQ(before.pixel(300, 300), qRgb(240, 240, 240));
  EXPECT_GT(DarkPixels(before, QRect(0, 0, 112, 14)), 50);
  EXPECT_EQ(DarkPixels(before, QRect(0, 20, 640, 45)), 0);
  EXPECT_GT(DarkPixels(before, QRect(80, 70, 40, 14)), 20);
  EXPECT_EQ(DarkPixels(before, QRect(0, 70, 78, 14)), 0);
  EXPECT_EQ(before, after);
}

// A surface of 100 by 20 pixels on a screen of that ratio.
class Paper final : public Surface {
 public:
  Paper(TextPainter& painter, double ratio) : Surface(&painter), shown(raster_) {
    shown.Fit(QSize(100, 20), ratio);
  }
  double ScaleWidth() const override { return 100; }
  double ScaleHeight() const override { return 20; }

  PrintSurface shown;
  QRect printed;

 protected:
  void ShowPrinted(std::string_view text, const TextMask& mask) override {
    shown.Print(QPointF(CurrentX, CurrentY), ToQLines(text), ToQFont(Font), QColor(0x20, 0, 0x60));
    printed = QRect(mask.corner.x, mask.corner.y, mask.size.width, mask.size.height);
  }
};

// What the window system paints on the ground itself.
TEST(TextPainter, ItsMaskBlendedInIsTheTextAsTheWindowSystemPaintsIt) {
  QtTextPainter painter;
  for (const FontFace& face : {FontFace{}, FontFace{.name = "Times New Roman", .size = 12, .italic = true}}) {
    Paper paper(painter, 1);
    paper.FillBar({0, 0}, {60, 19}, 0x40C080);
    QImage wanted(100, 20, QImage::Format_ARGB32_Premultiplied);
    SetFontScale(wanted);
    wanted.fill(Qt::transparent);
    QPainter direct(&wanted);
    direct.fillRect(0, 0, 61, 20, QColor(0x80, 0xC0, 0x40));
    direct.setFont(ToQFont(face));
    direct.setPen(QColor(0xC0, 0x20, 0x60));
    const QFontMetricsF metrics(ToQFont(face), &wanted);
    direct.drawText(QPointF(8.5, 1.25 + metrics.ascent()), "Ol\u00e1, rifa");
    direct.end();
    paper.ForeColor = 0x6020C0;
    paper.Font = face;
    paper.CurrentX = 8.5;
    paper.CurrentY = 1.25;
    paper.Print("Ol\xE1, rifa");
    QImage printed(100, 20, QImage::Format_ARGB32_Premultiplied);
    printed.fill(Qt::transparent);
    QPainter screen(&printed);
    paper.shown.PaintOn(screen, QRect(0, 0, 100, 20));
    screen.end();
    EXPECT_TRUE(paper.printed.contains(QRect(20, 5, 30, 10)));
    int different = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 100; ++x) different += printed.pixel(x, y) != wanted.pixel(x, y);
    }
    EXPECT_EQ(different, 0) << face.name;
  }
}

TEST(PrintSurface, OnAFineScreenCharactersAreFineAndStandInTheSamePlaces) {
  const auto picture = [](double ratio, std::string_view text = "Ol\xE1", bool erased = false) {
    QtTextPainter textPainter;
    Paper paper(textPainter, ratio);
    paper.CurrentX = 8;
    paper.Print(text);
    PrintSurface& surface = paper.shown;
    if (erased) surface.Clear();
    QImage screen(QSize(100, 20) * ratio, QImage::Format_RGB32);
    screen.setDevicePixelRatio(ratio);
    screen.fill(Qt::white);
    QPainter painter(&screen);
    surface.PaintOn(painter, QRect(0, 0, 100, 20));
    return screen;
  };
  const QImage coarse = picture(1);
  QImage fine = picture(2);
  fine.setDevicePixelRatio(1);
  for (const int ratio : {1, 2}) {
    const QImage& screen = ratio == 1 ? coarse : fine;
    EXPECT_EQ(DarkPixels(screen, QRect(0, 0, 8 * ratio, 20 * ratio)), 0);
    EXPECT_GT(DarkPixels(screen, QRect(8 * ratio, 0, 24 * ratio, 14 * ratio)), 30 * ratio);
    EXPECT_EQ(DarkPixels(screen, QRect(33 * ratio, 0, 60 * ratio, 20 * ratio)), 0);
  }
  EXPECT_NE(fine, coarse.scaled(fine.size())) << "drawn anew, not stretched";
  EXPECT_EQ(DarkPixels(picture(2, "Ol\xE1\r\nO", true), QRect(0, 0, 200, 40)), 0) << "erased";
  QImage two = picture(2, "\r\nOl\xE1");
  two.setDevicePixelRatio(1);
  EXPECT_EQ(DarkPixels(two, QRect(0, 0, 200, 24)), 0);
  EXPECT_GT(DarkPixels(two, QRect(0, 24, 200, 16)), 30) << "its second line";
  bool isBlue = false;
  for (int x = 16; x < 60; ++x) isBlue |= two.pixelColor(x, 36) == QColor(0x20, 0, 0x60);
  EXPECT_TRUE(isBlue);
}

TEST_F(QtHostTest, AWaitingProgramRestsTheProcessor) {
  When<> closing("Janela", [](QWidget& janela) { QTimer::singleShot(400, &janela, &QWidget::close); });
  const std::clock_t before = std::clock();
  Run("Enquanto 1 = 1\nAguarde 10\nRepita\n");
  const double seconds = double(std::clock() - before) / CLOCKS_PER_SEC;
  EXPECT_LT(seconds, 0.2);
}

TEST_F(QtHostTest, TheFrameFollowsTheStyle) {
  When<> shown("Janela", [&](QWidget& janela) {
    Form& form = program.janela.windows().MainWindow();
    form.SetStyle({.Titlebar = false, .Sizable = false, .ToolWindow = true, .TopMost = true});
    EXPECT_TRUE(janela.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(janela.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(janela.windowType(), Qt::Tool);
    EXPECT_EQ(janela.minimumSize(), janela.maximumSize());
    form.SetStyle({.MinButton = false});
    constexpr Qt::WindowFlags kFrame =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    EXPECT_EQ(janela.windowFlags(), kFrame | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint);
    EXPECT_GT(janela.maximumWidth(), 5000);
    EXPECT_EQ(janela.minimumSize(), QSize(0, 0));
    EXPECT_TRUE(janela.isVisible());
    // A help button stands in a title without size buttons.
    const auto hasHelp = [&] { return janela.windowFlags().testFlag(Qt::WindowContextHelpButtonHint); };
    form.SetStyle({.WhatsThisButton = true});
    EXPECT_FALSE(hasHelp());
    form.SetStyle({.MinButton = false, .MaxButton = false, .WhatsThisButton = true});
    EXPECT_TRUE(hasHelp());
    form.SetStyle({.MinButton = false, .MaxButton = false});
    EXPECT_FALSE(hasHelp());
    janela.close();
  });
  Run("Enquanto 1 = 1\nAguarde 10\nRepita\n");
}

TEST_F(QtHostTest, TheFirstShowingHasTheFormThatItsStarterAskedFor) {
  struct Row {
    StartForm form;
    bool isShown;
    Qt::WindowStates state;
    bool takesFocus;
  };
  for (const Row& row : {Row{StartForm::Hidden, false, Qt::WindowNoState, false},
                         Row{StartForm::Normal, true, Qt::WindowNoState, true},
                         Row{StartForm::Minimised, true, Qt::WindowMinimized, false},
                         Row{StartForm::Maximised, true, Qt::WindowMaximized, true},
                         Row{StartForm::MinimisedWithoutFocus, true, Qt::WindowMinimized, false},
                         Row{StartForm::NormalWithoutFocus, true, Qt::WindowNoState, false}}) {
    QtHost anotherHost;
    HostedProgram another(anotherHost.host(), anotherHost);
    another.janela.StartAs(row.form);
    ASSERT_EQ(another.Start(""), RunOutcome::Ended);
    QTest::qWait(20);
    const QWidget* janela = WidgetNamed("Janela");
    ASSERT_EQ(janela != nullptr, row.isShown) << int(row.form);
    if (janela == nullptr) {
      another.commands.CommandCall("Janela", "Visivel = Sim");
      EXPECT_NE(WidgetNamed("Janela"), nullptr) << "where the program says so";
      continue;
    }
    EXPECT_EQ(janela->windowState() & ~Qt::WindowStates(Qt::WindowActive), row.state) << int(row.form);
    EXPECT_EQ(!janela->testAttribute(Qt::WA_ShowWithoutActivating),
              row.form != StartForm::NormalWithoutFocus && row.form != StartForm::MinimisedWithoutFocus);
    if (row.takesFocus) {
      EXPECT_TRUE(janela->isActiveWindow()) << int(row.form);
    }
  }
}

TEST_F(QtHostTest, ThePointerIsHiddenOverAllWindowsAndShownAgain) {
  const auto isHidden = [] {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor != nullptr && cursor->shape() == Qt::BlankCursor;
  };
  ASSERT_EQ(program.Start(""), RunOutcome::Ended);
  program.commands.CommandCall("Janela", "AtivaCursor = Nao");
  EXPECT_TRUE(isHidden());
  program.commands.CommandCall("Janela", "AtivaCursor = Nao");
  program.commands.CommandCall("Janela", "AtivaCursor = Sim");
  EXPECT_FALSE(isHidden()) << "hidden twice, shown once";
}

TEST_F(QtHostTest, ThePointerIsToldInPixelsOfTheScreen) {
  ASSERT_EQ(program.Start(""), RunOutcome::Ended);
  const auto place = [&] { return Variable("LinhaMouse") + " " + Variable("ColunaMouse"); };
  const auto pointAt = [](int x, int y) {
    QTest::mouseMove(WidgetNamed("Janela")->windowHandle(), QPoint(x, y));
  };
  program.commands.CommandCall("Janela", "MouseGeral = Sim");
  QCursor::setPos(123, 45);
  EXPECT_TRUE(QTest::qWaitFor([&] { return place() == "45 123"; })) << place();
  pointAt(80, 42);
  EXPECT_NE(place(), "3 10") << "the window tells nothing";
  program.commands.CommandCall("Janela", "MouseGeral = Nao");
  pointAt(160, 28);
  QTest::qWait(120);
  EXPECT_EQ(place(), "2 20") << "the timer has no effect any more";
}

TEST_F(QtHostTest, TheWindowBelowTakesTheFrontOfOneThatIsHidden) {
  ASSERT_EQ(program.Start("NovaJanela Define, F\nNovaJanela F.Use\n"), RunOutcome::Ended);
  const QWidget& further = *WidgetNamed("F");
  EXPECT_TRUE(QTest::qWaitFor([&] { return further.isActiveWindow(); }));
  program.run.doors.NovaJanela("F.Visivel = \"NAO\"");
  EXPECT_TRUE(QTest::qWaitFor([] { return WidgetNamed("Janela")->isActiveWindow(); }));
}

// So that the window system gives the front back to it, but keeps it from a person.
TEST_F(QtHostTest, AStaticWindowIsTheChildOfItsOpenerUntilItIsClosed) {
  QWindow* further = nullptr;
  const When<> shown("F", [&](QWidget& window) {
    further = window.windowHandle();
    EXPECT_EQ(further->transientParent(), WidgetNamed("Janela")->windowHandle());
    EXPECT_EQ(further->modality(), Qt::ApplicationModal);
    window.close();
  });
  ASSERT_EQ(
      program.Start("NovaJanela Define, F\nNovaJanela F.Ativa, \"ESTATICA\"\n", "Sub F_Codigo()\nFimSub\n"),
      RunOutcome::Ended);
  ASSERT_NE(further, nullptr);
  EXPECT_EQ(further->transientParent(), nullptr);
  EXPECT_EQ(further->modality(), Qt::NonModal);
}

// The window system gives the front when it likes.
TEST_F(QtHostTest, LateNewsOfTheFrontIsPassedOverAndAClickIsNot) {
  ASSERT_EQ(program.Start("NovaJanela Define, F\nNovaJanela F.Use\n"), RunOutcome::Ended);
  QWidget& main = *WidgetNamed("Janela");
  const auto current = [&] { return program.janela.windows().CurrentWindowName(); };
  WidgetNamed("F")->windowHandle()->setFlag(Qt::WindowDoesNotAcceptFocus);
  main.activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&] { return current() == "Pai"; })) << current();
  program.run.doors.NovaJanela("F.Use");
  ASSERT_TRUE(main.isActiveWindow());
  QEvent news(QEvent::ActivationChange);
  QCoreApplication::sendEvent(&main, &news);
  EXPECT_EQ(current(), "F");
  QTest::mouseClick(main.windowHandle(), Qt::LeftButton, {}, QPoint(300, 300));
  EXPECT_EQ(current(), "Pai");
}

// A window that went and came again would lose its place, its order, and at times its manager.
TEST_F(QtHostTest, AStyleChangesWithoutTheWindowsGoing) {
  struct Hides final : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Hide;
      return false;
    }
    int count = 0;
  };
  When<> shown("Janela", [&](QWidget& janela) {
    Hides hides;
    janela.installEventFilter(&hides);
    Form& form = program.janela.windows().MainWindow();
    const QPoint place = janela.pos();
    const QWindow* window = janela.windowHandle();
    form.SetStyle({.Sizable = false});
    form.SetStyle({.ControlBox = false, .TopMost = true});
    EXPECT_TRUE(window->flags().testFlag(Qt::WindowStaysOnTopHint));
    form.SetStyle({});
    EXPECT_EQ(hides.count, 0);
    EXPECT_EQ(janela.windowHandle(), window);
    EXPECT_EQ(janela.pos(), place);
    janela.removeEventFilter(&hides);
    janela.close();
  });
  Run("Enquanto 1 = 1\nAguarde 10\nRepita\n");
}

TEST_F(QtHostTest, TheSystemMenuActsOnItsWindow) {
  const auto choose = [&](const char* label) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), "MenuSistema");
    for (const QAction* action : menu->actions()) {
      EXPECT_EQ(action->isSeparator(), action == menu->actions().at(menu->actions().size() - 2));
    }
    for (QAction* action : menu->actions()) {
      if (action->text() != QLatin1String(label)) continue;
      ASSERT_TRUE(action->isEnabled()) << label;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      return;
    }
    FAIL() << "no entry " << label;
  };
  When<> shown("Janela", [&](QWidget& janela) {
    Form& form = program.janela.windows().MainWindow();
    form.ShowSysMenu();
    KeepLook(QApplication::activePopupWidget()->grab().toImage(), "menu");
    choose("Ma&ximizar");
    EXPECT_TRUE(janela.isMaximized());
    EXPECT_EQ(form.State(), WindowState::Maximised);
    form.ShowSysMenu();
    choose("&Restaurar");
    EXPECT_FALSE(janela.isMaximized());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(janela.findChild<QMenu*>(), nullptr) << "a menu that was left is gone";
    form.SetStyle({.ControlBox = false});
    form.ShowSysMenu();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "there is none";
    form.SetStyle({});
    form.ShowSysMenu();
    choose("&Fechar");
  });
  EXPECT_EQ(Run("Enquanto 1 = 1\nAguarde 10\nRepita\n"), 0);
  EXPECT_FALSE(program.run.RunningFlag);
}

TEST_F(QtHostTest, AWindowIsDraggedByItsClientArea) {
  When<> shown("Janela", [&](QWidget& janela) {
    Form& form = program.janela.windows().MainWindow();
    form.SetStyle({.AutoDrag = true});
    const QPoint before = janela.pos();
    QTest::mousePress(janela.windowHandle(), Qt::LeftButton, {}, QPoint(50, 40));
    QTest::mouseMove(janela.windowHandle(), QPoint(70, 45));
    EXPECT_EQ(janela.pos() - before, QPoint(20, 5));
    QTest::mouseRelease(janela.windowHandle(), Qt::LeftButton, {}, QPoint(50, 40));
    QTest::mouseMove(janela.windowHandle(), QPoint(90, 90));
    EXPECT_EQ(janela.pos() - before, QPoint(20, 5));
    EXPECT_EQ(Variable("CliqueMouse"), "");
    QTest::mousePress(janela.windowHandle(), Qt::RightButton, {}, QPoint(50, 40));
    EXPECT_EQ(program.janela.windows().events.MouseButtonsText, "01") << "the second button drags nothing";
    QTest::mouseRelease(janela.windowHandle(), Qt::RightButton, {}, QPoint(50, 40));
    // The person's own way to another state is known to the program.
    janela.showMaximized();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.State() == WindowState::Maximised; }));
    janela.showNormal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.State() == WindowState::Normal; }));
    program.commands.CommandCall("Janela", "Fixa = Sim");
    janela.showMaximized();
    QTest::qWait(50);
    EXPECT_FALSE(janela.isMaximized()) << "a fixed window does not stay so";
    janela.move(33, 44);
    EXPECT_EQ(form.Place().Left, TwipsOfPixels(33));
    janela.close();
  });
  Run("Enquanto 1 = 1\nAguarde 10\nRepita\n");
}

TEST_F(QtHostTest, AWindowIsShapedByTheColourThatIsCutOut) {
  const auto look = [&](QWidget& janela) {
    Form& form = program.janela.windows().MainWindow();
    form.ShapeMe(0x00FF00);
    EXPECT_EQ(janela.windowTitle(), "");
    EXPECT_FALSE(janela.mask().contains(QPoint(5, 5)));
    EXPECT_TRUE(janela.mask().contains(QPoint(200, 200)));
    int pixels = 0;
    for (const QRect& rect : janela.mask()) pixels += rect.width() * rect.height();
    int kept = 0;
    for (const Span& span : *form.Shape()) kept += span.right - span.left + 1;
    EXPECT_EQ(pixels, kept);
    EXPECT_NEAR(pixels, 31400, 400) << "a disc of radius 100";
    form.SetBackground(StockPicture(StockKind::Background, 0));
    form.ShapeMe(0x00FF00);
    EXPECT_TRUE(janela.mask().isEmpty()) << "no such pixel";
    janela.close();
  };
  When<> shown("Janela", look, ProgramEnded());
  Run("Janela Resolucao = 420, 640, Fundo = Verde\nCirculo 200, 200, 100, Vermelho\nFimPrograma\n");
}

TEST_F(QtHostTest, TheNoticeOfABareRuntimeTellsWhatItIs) {
  When<> shown("MsgExec", [](QWidget& notice) {
    EXPECT_EQ(notice.windowTitle(), "Tessera");
    const auto* aviso = notice.findChild<QLabel*>("LblAviso");
    EXPECT_EQ(aviso->text(), QStringLiteral("Não há programa. ").repeated(9));
    EXPECT_EQ(aviso->geometry().topLeft(), QPoint(28, 24));
    EXPECT_EQ(QPoint(aviso->width(), notice.width()), QPoint(380, 380 + 2 * 28));
    EXPECT_EQ(notice.findChild<QLabel*>("LblDescricao")->y(),
              notice.findChild<QLabel*>("LblNome")->geometry().bottom() + 1 + 10);
    EXPECT_EQ(notice.findChild<QLabel*>("LblNome")->text(), "Compilador do Tessera");
    EXPECT_EQ(notice.findChild<QLabel*>("LblDescricao")->text(),
              QStringLiteral("Utilitário para compilar programas do Tessera"));
    EXPECT_EQ(notice.findChild<QLabel*>("LblVersao")->text(), QStringLiteral("VERSÃO 1.0.71"));
    auto* ok = notice.findChild<QPushButton*>("BtnOK");
    EXPECT_GT(ok->y(), notice.findChild<QLabel*>("LblVersao")->geometry().bottom());
    EXPECT_EQ(ok->geometry().right(), aviso->geometry().right());
    QTest::mouseClick(ok, Qt::LeftButton);
  });
  ShowMsgExec(QStringLiteral("Não há programa. ").repeated(9).toStdString());
}

}  // namespace tessera::test
