// What each kind of object paints in each of its states, against the pictures that were kept.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QStyleHints>
#include <QTest>
#include <QWindow>
#include <string>

#include "qt/block_font.h"
#include "qt/form.h"
#include "qt/golden_sheet.h"
#include "qt/looks/look.h"
#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"

namespace tessera::test {

namespace {

constexpr QPoint kAway(630, 415);
constexpr int kPainted = 40;  // milliseconds, until a drawing shows

class GoldenLooks : public testing::Test {
 protected:
  GoldenLooks() { QGuiApplication::styleHints()->setCursorFlashTime(0); }

  void Start(std::string_view source) {
    EditorTexts editors;
    editors[0] = FromSource(source);
    ASSERT_EQ(program.Start(editors, ""), RunOutcome::Ended);
    qt.ProcessEvents();
    for (const QPoint at : {QPoint(0, 0), kAway}) QTest::mouseMove(Top(), at);
  }
  void TearDown() override { sheet.Check(); }

  Form& Main() { return program.janela.windows().MainWindow(); }
  Control& Named(std::string_view name) {
    for (Control* control : Main().Controls().InZOrder()) {
      if (control->Name() == name) return *control;
    }
    return *Main().Controls().Element(name, 0);
  }
  QWidget& WidgetOf(std::string_view name) { return static_cast<LookView&>(*Named(name).View()).Widget(); }
  QWindow* Top() { return static_cast<QtForm&>(Main()).widget()->windowHandle(); }
  QPoint InWindow(std::string_view name, QPoint at) {
    QWidget& widget = WidgetOf(name);
    return widget.mapTo(widget.window(), at);
  }

  // What the screen shows by now, and not what the window would paint if it were asked.
  QImage Screen(QWindow* window, int wait = 1) {
    QTest::qWait(wait);
    return window->screen()->grabWindow(window->winId()).toImage();
  }
  void Look(std::string_view name, const std::string& state) {
    sheet.Add(std::string(name) + " " + state,
              Screen(Top()).copy(QRect(InWindow(name, {}), WidgetOf(name).size())));
  }
  void LookAtDropped(const std::string& what) {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << what;
    sheet.Add(what, Screen(QApplication::activePopupWidget()->windowHandle()));
  }
  void Point(std::string_view name, QPoint at) { QTest::mouseMove(Top(), InWindow(name, at)); }
  void Press(std::string_view name, QPoint at) {
    QTest::mousePress(Top(), Qt::LeftButton, {}, InWindow(name, at));
  }
  void Click(std::string_view name, QPoint at) {
    QTest::mouseClick(Top(), Qt::LeftButton, {}, InWindow(name, at));
  }
  void LetGo() {
    QTest::mouseMove(Top(), kAway);
    QTest::mouseRelease(Top(), Qt::LeftButton, {}, kAway);
  }
  void Focus(std::string_view name) { Main().MoveFocus(&Named(name)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Top(), key, modifiers); }

  // An object that lets itself be pointed at, in each of its states.
  void States(std::string_view name, QPoint at = {6, 6}) {
    Look(name, "at rest");
    Point(name, at);
    Look(name, "pointed at");
    QTest::mouseMove(Top(), kAway);
    if (Named(name).TakesFocus()) {
      Focus(name);
      Look(name, "with the focus");
    }
    Press(name, at);
    Look(name, "pressed");
    LetGo();
    Look(name, "left");
    Named(name).SetEnabled(false);
    Look(name, "disabled");
  }

  BlockFont font;
  QtHost qt;
  HostedProgram program{qt.host(), qt};
  GoldenSheet sheet{testing::UnitTest::GetInstance()->current_test_info()->name()};
};

}  // namespace

TEST_F(GoldenLooks, Buttons) {
  Start(
      "Botao Liso, 1, 1, 1.6, 9, \"Liso\"\nBotao Com, 4, 1, 1.6, 14, \"Com\", FigOK\nBotao So, 7, 1, 2, 4, "
      "\"\", FigOK\n"
      "Botao Longo, 10, 1, 1.6, 5, \"Longo demais\"\nBotao Vestido, \"Tipo0\", 13, 1, \"Ve\"\nBotao Sem, 16, "
      "1, 1.6, 5\n");
  for (const char* name : {"Liso", "Com", "So", "Vestido"}) States(name);
  Look("Longo", "");
  Look("Sem", "");
}

TEST_F(GoldenLooks, ChecksAndOptions) {
  Start(
      "Check Uma, 1, 1, \"Um\"\nCheck Outra, 3, 1, \"De\", 1\nOpcao Esta, 5, 1, \"Es\"\nOpcao Aquela, 7, 1, "
      "\"Aq\"\n"
      "Opcao Aquela.Valor = 1\n");
  for (const char* name : {"Esta", "Uma"}) {
    Click(name, {6, 6});
    Look(name, "clicked");
    Click(name == std::string("Uma") ? name : "Aquela", {6, 6});
  }
  for (const char* name : {"Uma", "Outra", "Esta", "Aquela"}) States(name);
}

TEST_F(GoldenLooks, LabelsLinksAndFrames) {
  Start(
      "Rotulo Curto, \"Nome um\", 1, 1, 10, 2\nRotulo Meio, \"Duas linhas aqui\", 4, 1, 9, 3\nRotulo "
      "Meio.Justifica = 2\n"
      "Rotulo Direita, \"Um\", 8, 1, 9, 2\nRotulo Direita.Justifica = 1\nRotulo Direita.CorFundo = Amarelo\n"
      "Rotulo Direita.CorLetra = Azul\nRotulo Baixo, \"Um\", 11, 1, 5, 0.8\n"
      "Link Ajuda, 13, 1, \"Ajuda\", \"x\"\nLink Ajuda.CorLetra = AzulEscuro\nLink Ajuda.CorFundo = Branco\n"
      "Rotulo Grande, \"Ab\", 23, 1, 12, 3\nRotulo Grande.TamFonte = 16\n"
      "Moldura Dados, \"Dados\", 16, 1, 3, 12\nMoldura Sem, \"\", 20, 1, 3, 12\n");
  for (const char* name : {"Curto", "Meio", "Direita", "Baixo", "Grande", "Ajuda", "Dados", "Sem"}) {
    Look(name, "at rest");
    Named(name).SetEnabled(false);
    if (name != std::string("Dados") && name != std::string("Sem")) Look(name, "disabled");
  }
}

TEST_F(GoldenLooks, Entries) {
  Start(
      "Texto Curto, 1, 1, 12\nTexto Curto.Txt = \"Ana b\"\nTexto Longo, 3, 1, 8\nTexto Longo.Txt = \"Um "
      "texto longo\"\n"
      "Mascara M, \"##-##\", 5, 1, 9\nMoeda V, 7, 1, 9\nMoeda V.Valor = 1234.5\nCombo C, 9, 1, 10\nCombo "
      "C.Txt = \"Abcd\"\n"
      "Combo L, 11, 1, 6\nCombo L.Txt = \"Abcdefghij\"\nTexto D, 13, 1, 9\nTexto D.Txt = \"Ab\"\nTexto "
      "D.Justifica = 1\n"
      "Mascara Cheio, \"#####\", 15, 1, 5\n");
  for (const char* name : {"Curto", "M", "V", "C", "D"}) States(name, {30, 6});
  for (const char* name : {"Longo", "L", "Cheio"}) {
    Look(name, "at rest");
    Focus(name);
    Key(Qt::Key_End);
    Look(name, "at its end");
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Look(name, "with a selection");
    Key(Qt::Key_Home);
    Key(Qt::Key_End, Qt::ShiftModifier);
    Look(name, "selected");
    Key(Qt::Key_Home);
    Look(name, "at its begin");
  }
}

TEST_F(GoldenLooks, TextsOfSeveralLines) {
  Start(
      "Texto T, 1, 1, 14, 5\nTexto T.Txt = \"um dois tres quatro cinco seis sete oito nove dez\"\n"
      "Texto T.Seleciona, 3, 4, \"MS Sans Serif\", 8, \"NORMAL\", Vermelho\nTexto P, 8, 1, 14, 4\nTexto "
      "P.Txt = \"Ab\"\n"
      "Texto M, 13, 1, 14, 4\nTexto M.Justifica = 2\nTexto M.Txt = \"Ab cd\"\nTexto M.CorFundo = Amarelo\n"
      "Texto E, 18, 1, 14, 4\nTexto E.TamFonte = 16\n");
  States("T", {30, 8});
  Named("T").SetEnabled(true);
  Focus("T");
  Key(Qt::Key_Home, Qt::ControlModifier);
  Look("T", "at its begin");
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Look("T", "with a selection");
  Key(Qt::Key_End, Qt::ControlModifier);
  Look("T", "at its end");
  Look("P", "");
  Focus("P");
  Look("P", "with the focus");
  Look("M", "");
  ControlPlace narrow = Named("T").Place();
  narrow.Width = 70;
  Named("T").Move(narrow);
  Look("T", "made narrower");
  Focus("E");
  Look("E", "empty, with the focus");
}

TEST_F(GoldenLooks, Lists) {
  Start(
      "Combo C, 1, 1, 12\nCombo C.Adiciona \"Ana\"\nCombo C.Adiciona \"Um texto longo demais\"\nCombo "
      "C.Adiciona \"Cá\"\n"
      "Combo C.Adiciona \"D\"\nCombo C.Linhas = 3\nCombo V, 4, 1, 9\nCombo B, 27, 1, 9\nCombo B.Adiciona "
      "\"Ana\"\n");
  Click("C", {WidgetOf("C").width() - 8, 8});
  LookAtDropped("the list");
  QWidget* list = QApplication::activePopupWidget();
  QTest::mouseMove(list, {20, 28});
  LookAtDropped("its second entry pointed at");
  Look("C", "with its list open");
  for (int i = 0; i < 4; ++i) QTest::keyClick(list, Qt::Key_Down);
  LookAtDropped("its last entry chosen");
  QTest::keyClick(list, Qt::Key_Escape);
  Click("V", {WidgetOf("V").width() - 8, 8});
  LookAtDropped("the list without entries");
}

TEST_F(GoldenLooks, Calendars) {
  Start("Calendario Q, 1, 1, 12\nCalendario Q.Txt = \"05/03/2009\"\n");
  States("Q", {30, 6});
  Named("Q").SetEnabled(true);
  Click("Q", {WidgetOf("Q").width() - 8, 8});
  LookAtDropped("the month");
  QTest::mouseMove(QApplication::activePopupWidget(), {100, 100});
  LookAtDropped("a day pointed at");
}

TEST_F(GoldenLooks, Bars) {
  Start(
      "BarraRolagem D, 100, 1, 1, 1, 9\nBarraRolagem D.Valor = 30\nBarraRolagem P, 10, 3, 1, 0, 4\n"
      "BarraRolagem Z, 0, 1, 20, 1, 6\n");
  Look("Z", "with nothing to move over");
  for (const char* name : {"D", "P"}) {
    const QSize size = WidgetOf(name).size();
    const bool lies = size.width() > size.height();
    const QPoint end = lies ? QPoint(size.width() - 5, 6) : QPoint(6, size.height() - 5);
    Point(name, {5, 5});
    Look(name, "its first arrow pointed at");
    Point(name, end);
    Look(name, "its second arrow pointed at");
    Press(name, end);
    Look(name, "its second arrow pressed");
    LetGo();
    const QPoint thumb = lies ? QPoint(30, 6) : QPoint(6, 28);
    States(name, thumb);
  }
}

TEST_F(GoldenLooks, Grids) {
  Start(
      "Var i Inteiro\nBox G, 1, 1, 4\nBox G.Titulo, \"Nome\", 8\nBox G.Titulo, \"Me\", 6, \"CENTRO\"\n"
      "Box G.Titulo, \"Va\", 6, \"DIR\", \"NUMERICO\"\nBox G.Ativa\nEnquanto i < 9\nBox G.Add \"Abc "
      "defghij\"\n"
      "Box G.Add \"Um\", Vermelho, Amarelo\nBox G.Add 30 - i\nBox G.New\ni++\nRepita\nBox G.Fim\n"
      "Box W, 12, 1, 3\nBox W.Titulo, \"A\", 60\nBox W.Titulo, \"B\", 60\nBox W.Ativa\nBox W.Add 1\nBox "
      "W.New\nBox W.Fim\n");
  States("G", {20, 30});
  Named("G").SetEnabled(true);
  for (const char* state : {"sorted by a title", "sorted the other way"}) {
    Click("G", {130, 8});
    QTest::mouseMove(Top(), kAway);
    Look("G", state);
  }
  Point("G", {20, 8});
  Look("G", "its title pointed at");
  Press("G", {20, 8});
  Look("G", "its title pressed");
  LetGo();
  const int right = WidgetOf("G").width() - 6;
  Point("G", {right, 26});
  Look("G", "its arrow pointed at");
  Press("G", {right, 26});
  Look("G", "its arrow pressed");
  LetGo();
  program.commands.CommandCall("Box", "G.AlteraCelula = \"SIM\"");
  Click("G", {20, 50});
  Look("G", "edited");
  Key(Qt::Key_Home);
  Key(Qt::Key_Right);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  Look("G", "with a selection");
  Key(Qt::Key_End);
  Look("G", "at the end of its cell");
  Focus("W");
  Look("G", "edited without the focus");
  Look("W", "");
}

TEST_F(GoldenLooks, PicturesAndTheMenu) {
  Start(
      "MenuSistema \"GUIA\", 0, \"\", \"Arq\"\nMenuSistema \"GUIA\", 0, \"OPCAO\", \"Abre\"\nMenuSistema "
      "\"GUIA\", 1, \"\", \"Ver\"\n"
      "Imagem Q, \"\", 3, 1, 3, 8\nImagem Q.CorFundo = Branco\nImagem Q.LinhaReta, 0, 0, 40, 60, Azul\n"
      "Imagem Q.PosX = 8\nImagem Q.PosY = 12\nImagem Q.Escreva \"Abc\"\n"
      "Imagem L, FigLivro, 8, 1, 4, 6\nGifAnimado S, GifSapo1, 0, 14, 1\n");
  Look("Q", "");
  Look("L", "");
  Look("S", "");
  States("Guia", {50, 6});
}

TEST_F(GoldenLooks, TheWindow) {
  Start(
      "Janela Fundo = Amarelo\nCirculo 2, 8, 1, Vermelho\nPosicione 1, 1\nFonte Cor = Azul\n"
      "Escreva \"Abc\"\nEscreva \"De\"\n");
  const auto look = [&](const char* state) { sheet.Add(state, Screen(Top(), kPainted).copy(0, 0, 100, 60)); };
  look("printed and drawn on");
  program.commands.CommandCall("LinhaReta", "0, 0, 3, 11, Verde");
  look("with a line");
  program.Fundo(Main(), "ImgPantano");
  look("with a background");
  program.commands.CommandCall("Cls", "");
  look("erased");
}

}  // namespace tessera::test
