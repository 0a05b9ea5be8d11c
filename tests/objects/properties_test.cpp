// What creating objects and their suffixes makes of the controls: places, looks and states, a row each.
#include <gtest/gtest.h>

#include <sstream>

#include "objects/botao.h"
#include "objects/combo.h"
#include "objects/entry_control.h"
#include "objects/texto.h"
#include "support/console_window.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

// "left,top widthxheight back/fore font size what-is-not-usual [tip] text", and the number in the order of
// Tab.
std::string Told(const Control& control) {
  std::ostringstream told;
  const ControlPlace& place = control.Place();
  const FontFace& font = control.Font();
  told << place.Left << "," << place.Top << " " << place.Width << "x" << place.Height << " " << std::hex
       << control.BackColor() << "/" << control.ForeColor() << std::dec << " " << font.name << " "
       << font.size << (font.bold ? " bold" : "") << (font.italic ? " italic" : "")
       << (control.Visible() ? "" : " hidden") << (control.Enabled() ? "" : " disabled") << " ["
       << control.ToolTipText() << "] " << ToUtf8(control.PortraitText()) << " " << control.TabIndex();
  const auto* button = dynamic_cast<const BotaoControl*>(&control);
  if (button != nullptr && button->Picture()) told << " picture";
  return told.str();
}

// The one made last; null for none.
Control* LastMade(HostedProgram& program) {
  Control* made = nullptr;
  for (Control* control : program.janela.form().Controls().InZOrder()) {
    if (made == nullptr || control->Number() > made->Number()) made = control;
  }
  return made;
}

}  // namespace

TEST_F(ConsoleWindowTest, EachObjectIsWhatItsWordsMakeOfIt) {
  struct Row {
    const char* source;
    const char* told;
  };
  for (const Row& row : {
           Row{"Botao B, 3, 10", "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 0"},
           Row{"Botao B, 3, 10, \"Grava\"", "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] Grava 0"},
           Row{"Botao B, 3, 10, 2, 12, \"Grava\", \"\", \"dica\"",
               "80,42 96x28 8000000f/80000012 MS Sans Serif 8 [dica] Grava 0"},
           Row{"Botao B, 3, 10, 2, , \"Grava\"", "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] Grava 0"},
           Row{"Botao B, 3.5, 10.25", "82,49 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 0"},
           Row{"Botao A, 1, 1\nBotao B, 3, 10\nBotao B.CorFundo = 255\nBotao B.CorLetra = 65280",
               "80,42 80x28 ff/ff00 MS Sans Serif 8 [] OK 1"},
           Row{"Botao B, 3, 10\nBotao B.NomeFonte = \"Arial\"\nBotao B.TamFonte = 14\nBotao B.Negrito = "
               "\"Sim\"\nBotao B.Italico = \"SIM\"",
               "80,42 80x28 8000000f/80000012 Arial 14 bold italic [] OK 0"},
           Row{"Botao B, 3, 10\nBotao B.Negrito = \"SIM\"\nBotao B.Negrito = \"NAO\"\nBotao B.Descricao = "
               "\"ok?\"",
               "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] ok? 0"},
           Row{"Botao B, 3, 10\nBotao B.Ativo = \"NAO\"\nBotao B.Visivel = \"NAO\"",
               "80,42 80x28 8000000f/80000012 MS Sans Serif 8 hidden disabled [] OK 0"},
           Row{"Botao B, 3, 10\nBotao B.Ativo = \"NAO\"\nBotao B.Ativo = \"nao\"\nBotao B.Ativo = "
               "\"SIM\"\nBotao B.IndiceTab = 7",
               "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 7"},
           Row{"Botao B, 3, 10, 2, 12, \"x\", \"FigSair\", \"dica\"",
               "80,42 96x28 8000000f/80000012 MS Sans Serif 8 [dica] x 0 picture"},
           Row{"Botao B, 3, 10, 2, 12, \"x\", \"FigSair\", \"dica\"\nBotao B.Remove\nBotao C, 5, 10",
               "80,70 96x28 8000000f/80000012 MS Sans Serif 8 [] OK 1"},
           Row{"Botao B, 3, 10, 2, 12, \"x\", \"FigSair\", \"dica\"\nBotao B.Remove\nBotao C, 5, 10, 3, 5, "
               "\"y\"",
               "80,70 40x42 8000000f/80000012 MS Sans Serif 8 [] y 1"},
           Row{"Botao B, 3, 10\nBotao B.Figura = \"FigSair\"",
               "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 0 picture"},
           Row{"Botao B, 3, 10\nBotao B.Figura = \"FigSair\"\nBotao B.Figura = \"\"",
               "80,42 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 0"},
           Row{"Botao B, 3, 10, 2, 12, \"x\", , , \"SKIN1\"",
               "80,42 96x28 8000000f/80000012 MS Sans Serif 8 [] x 0"},
           Row{"Texto T, 5, 2\nTexto T.Remove\nTexto U, 6, 3, 10, 4",
               "24,84 80x56 80000005/80000012 MS Sans Serif 8 []  1"},
           Row{"Texto A, 1, 1\nTexto T, 5, 2\nTexto T.TamFonte = 20\nTexto T.Remove\nTexto U, 6, 3",
               "24,84 120x20 80000005/80000012 MS Sans Serif 8 []  2"},
           Row{"Combo L, 6, 7\nCombo L.TamFonte = 12\nCombo L.Dica = \"d\"\nCombo L.IndiceTab = 4",
               "56,84 140x20 80000005/80000012 MS Sans Serif 12 [d]  4"},
           Row{"Calendario D, 6, 7\nCalendario D.Negrito = \"SIM\"\nCalendario D.CorFundo = 5\nCalendario "
               "D.Txt = \"01/02/2003\"",
               "56,84 110x20 5/80000012 MS Sans Serif 8 bold [] 01/02/2003 0"},
           Row{"Moeda V, 2, 3\nMoeda V.Italico = \"SIM\"\nMoeda V.Altura = 2.5\nMoeda V.Dica = \"d\"",
               "24,28 120x35 80000005/80000012 MS Sans Serif 8 italic [d] 0,00 0"},
           Row{"Mascara M, \"##\", 2, 3\nMascara M.Visivel = \"NAO\"\nMascara M.Ativo = \"NAO\"",
               "24,28 120x20 80000005/80000012 MS Sans Serif 8 hidden disabled [] __ 0"},
           Row{"Opcao O, 4, 5, \"o\"\nOpcao O.Ativo = \"NAO\"\nOpcao O.Dica = \"d\"\nOpcao O.IndiceTab = 3",
               "40,56 33x18 8000000f/80000012 Courier New 10 disabled [d] o 3"},
           Row{"Link K, 8, 9, \"aqui\", \"x.org\"\nLink K.Txt = \"mais longo\"\nLink K.TamFonte = 12\nLink "
               "K.Negrito = \"SIM\"\nLink K.CorLetra = 7",
               "72,112 32x20 8000000f/7 Courier New 12 bold [] mais longo 0"},
           Row{"Imagem I, \"\", 2, 3, 10, 30\nImagem I.Altura = 5\nImagem I.Largura = 6\nImagem I.Linha = "
               "1\nImagem I.Coluna = 4",
               "32,14 48x70 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Box G, 3, 4, 10, 60", "32,42 400x238 ffffff/0 MS Sans Serif 8 []  0"},
           Row{"Box G, 3, 4, 10\nBox G.CorFundo = 9\nBox G.CorLetra = 8\nBox G.Ativo = \"NAO\"\nBox G.Dica = "
               "\"d\"",
               "32,42 400x238 9/8 MS Sans Serif 8 disabled [d]  0"},
           Row{"Janela Resolucao = 10, 20\nBotao B, 3, 10\nTexto T, 5, 2, 3, 2",
               "64,210 96x84 80000005/80000012 MS Sans Serif 8 []  1"},
           Row{"Texto T, 5, 2", "16,70 120x20 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Texto T, 5, 2, 30", "16,70 240x20 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Texto T, 5, 2, 30, 1", "16,70 240x20 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Texto T, 5, 2, 30, 2", "16,70 240x28 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Texto T, 5, 2, 30, 3", "16,70 240x42 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Texto T, 5, 2, 30\nTexto T.Txt = \"abc\"\nTexto T.Dica = \"o nome\"\nTexto T.CorFundo = "
               "1\nTexto T.CorLetra = 2",
               "16,70 240x20 1/2 MS Sans Serif 8 [o nome] abc 0"},
           Row{"Texto T, 5, 2, 30\nTexto T.Maximo = 3\nTexto T.Txt = \"abcdef\"\nTexto T.Visivel = \"NAO\"",
               "16,70 240x20 80000005/80000012 MS Sans Serif 8 hidden [] abcdef 0"},
           Row{"Rotulo R, \"Nome\", 1, 4", "32,14 22x20 8000000f/80000012 MS Sans Serif 8 [] Nome 0"},
           Row{"Rotulo R, \"Nome\", 1, 4, 20", "32,14 160x20 8000000f/80000012 MS Sans Serif 8 [] Nome 0"},
           Row{"Rotulo R, \"Nome\", 1, 4, 20, 2", "32,14 160x28 8000000f/80000012 MS Sans Serif 8 [] Nome 0"},
           Row{"Rotulo R, \"Nome\", 1, 4\nRotulo R.Txt = \"Outro nome\"\nRotulo R.TamFonte = 20\nRotulo "
               "R.Negrito = \"SIM\"\nRotulo R.Dica = \"d\"",
               "32,14 22x20 8000000f/80000012 MS Sans Serif 20 bold [d] Outro nome 0"},
           Row{"Rotulo R, \"Nome\", 1, 4\nRotulo R.CorFundo = 16\nRotulo R.CorLetra = 17\nRotulo R.Visivel = "
               "\"NAO\"",
               "32,14 22x20 10/11 MS Sans Serif 8 hidden [] Nome 0"},
           Row{"Mascara M, \"##/##\", 2, 3", "24,28 120x20 80000005/80000012 MS Sans Serif 8 [] __/__ 0"},
           Row{"Mascara M, \"##/##\", 2, 3, 10", "24,28 80x20 80000005/80000012 MS Sans Serif 8 [] __/__ 0"},
           Row{"Mascara M, \"##/##\", 2, 3, 10\nMascara M.Altura = 3\nMascara M.Txt = \"1#/2#\"",
               "24,28 80x42 80000005/80000012 MS Sans Serif 8 [] 1_/2_ 0"},
           Row{"Mascara M, \"##/##\", 2, 3, 10\nMascara M.Mascara = \"(##)\"\nMascara M.NomeFonte = "
               "\"Arial\"\nMascara M.TamFonte = 9",
               "24,28 80x20 80000005/80000012 Arial 9 [] __ 0"},
           Row{"Moeda V, 2, 3", "24,28 120x20 80000005/80000012 MS Sans Serif 8 [] 0,00 0"},
           Row{"Moeda V, 2, 3, 10", "24,28 80x20 80000005/80000012 MS Sans Serif 8 [] 0,00 0"},
           Row{"Moeda V, 2, 3, 10\nMoeda V.Casas = 0\nMoeda V.Valor = 12345\nMoeda V.Altura = 2",
               "24,28 80x28 80000005/80000012 MS Sans Serif 8 [] 12.345 0"},
           Row{"Moeda V, 2, 3, 10\nMoeda V.Valor = 1234.5\nMoeda V.CorLetra = 255\nMoeda V.Ativo = \"NAO\"",
               "24,28 80x20 80000005/ff MS Sans Serif 8 disabled [] 1.234,50 0"},
           Row{"Check C, 4, 5, \"Ativo\"", "40,56 65x18 8000000f/80000012 Courier New 10 [] Ativo 0"},
           Row{"Check C, 4, 5, \"Ativo\", 1\nCheck C.Dica = \"liga\"\nCheck C.CorFundo = 3",
               "40,56 65x18 3/80000012 Courier New 10 [liga] Ativo 0"},
           Row{"Opcao O, 4, 5, \"Uma longa\"\nOpcao O.CorLetra = 9",
               "40,56 97x18 8000000f/9 Courier New 10 [] Uma longa 0"},
           Row{"Combo L, 6, 7", "56,84 140x20 80000005/80000012 MS Sans Serif 8 []  0"},
           Row{"Combo L, 6, 7, 12\nCombo L.Adiciona \"um\"\nCombo L.Txt = \"dois\"",
               "56,84 96x20 80000005/80000012 MS Sans Serif 8 [] dois 0"},
           Row{"Calendario D, 6, 7\nCalendario D.Txt = \"31/12/2020\"",
               "56,84 110x20 80000005/80000012 MS Sans Serif 8 [] 31/12/2020 0"},
           Row{"Calendario D, 6, 7, 14\nCalendario D.Txt = \"01/02/2003\"",
               "56,84 112x20 80000005/80000012 MS Sans Serif 8 [] 01/02/2003 0"},
           Row{"BarraRolagem S, 10, 2, 3, 0, 9", "24,28 17x126 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"BarraRolagem S, 10, 2, 3, 1, 9", "24,28 72x17 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"BarraRolagem S, 10, 2, 3, 2, 9\nBarraRolagem S.Visivel = \"NAO\"",
               "24,28 72x17 8000000f/80000012 MS Sans Serif 8 hidden []  0"},
           Row{"Moldura F, \"Dados\", 2, 3, 4, 20",
               "24,28 160x56 8000000f/80000012 MS Sans Serif 8 [] Dados 0"},
           Row{"Moldura F, \"Dados\", 2, 3, 4, 20\nMoldura F.Dica = \"d\"\nMoldura F.Visivel = \"NAO\"",
               "24,28 160x56 8000000f/80000012 MS Sans Serif 8 hidden [d] Dados 0"},
           Row{"Link K, 8, 9, \"aqui\", \"x.org\"", "72,112 32x20 8000000f/c1632a Courier New 10 [] aqui 0"},
           Row{"Imagem I, 2, 3, 10, 30", "80,42 32x420 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Imagem I, \"\", 2, 3, 10, 30", "24,28 240x140 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Imagem I, 2, 3, 10, 30\nBotao B, 1, 1\nBotao B.Pai = \"i\"",
               "8,14 80x28 8000000f/80000012 MS Sans Serif 8 [] OK 1"},
           Row{"Box G, 3, 4, 10", "32,42 400x238 ffffff/0 MS Sans Serif 8 []  0"},
           Row{"Combo L, 6, 7\nCombo L.Txt = \"dois\"\nCombo L.Remove\nCombo M, 6, 7",
               "56,84 140x20 80000005/80000012 MS Sans Serif 8 []  1"},
           Row{"Fonte Tamanho = 40\nCheck C, 4, 5, \"a\"",
               "40,56 57x64 8000000f/80000012 Courier New 40 [] a 0"},
           Row{"Imagem I, \"FigOK\", 2, 3, 10, 30\nImagem I.AjustaImagem",
               "24,28 32x32 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Imagem I, \"FigOK\", 2, 3", "24,28 32x32 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Navegador \"ATIVA\", 2, 3, 10, 30", "24,28 240x140 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"Imagem I, \"FigOK\", 2, 3\nImagem I.Redimensiona, 5, 6",
               "24,28 48x70 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"GifAnimado G, \"GifSapo1\", 0, 2, 3\nGifAnimado G.Altura = 5\n"
               "GifAnimado G.Imagem = \"GifSapa2\"",
               "24,28 96x70 8000000f/80000012 MS Sans Serif 8 []  0"},
           Row{"GifAnimado A, \"GifSapo1\", 0, 2, 3\nGifAnimado A.Largura = 7\nGifAnimado A.Remove\n"
               "GifAnimado G, \"GifSapo1\", 0, 2, 3",
               "24,28 96x96 8000000f/80000012 MS Sans Serif 8 []  1"},
       }) {
    HostedProgram fresh(host.host(), host);
    EditorTexts editors;
    editors[0] = FromSource(row.source);
    ASSERT_EQ(fresh.Start(editors, ""), RunOutcome::Ended) << row.source << err.str();
    const Control* const made = LastMade(fresh);
    ASSERT_NE(made, nullptr) << row.source;
    EXPECT_EQ(Told(*made), row.told) << row.source;
  }
}

TEST_F(ConsoleWindowTest, ABrowserGrowsWithItsWindow) {
  in.str("redim 10 50\nredim 12 60\n");
  Draw("Aguarde 0\nNavegador \"ATIVA\", 1, 1, 5, 20\nAguarde 0\n");
  const ControlPlace& place = LastMade(program)->Place();
  EXPECT_EQ(place.Width, 30 * 8);
  EXPECT_EQ(place.Height, 5 * 14 + 29) << "a line of a window has 220 twips";
}

TEST_F(ConsoleWindowTest, TheListOfAComboFollowsWheelAndPointer) {
  Draw(
      "Var i Inteiro\nCombo C, 1, 1\nEnquanto i < 9\ni++\nCombo C.Adiciona i\nRepita\n"
      "Combo C.Linhas = 5\n");
  auto& combo = dynamic_cast<ComboControl&>(*LastMade(program));
  const std::ptrdiff_t rows = combo.State().ListRows();
  EXPECT_EQ(rows, static_cast<std::ptrdiff_t>(5 * 14 / combo.RowHeight()));
  combo.ArrowClick();
  combo.Wheel(2);
  EXPECT_EQ(combo.State().FirstVisible(), 2);
  combo.ListHover(3);
  EXPECT_EQ(combo.State().Highlighted(), 3);
  combo.OnKeyDown(13, {});
  EXPECT_EQ(program.run.variables.VarRead("C.Txt").ToText(), "4");
}

// The variable tells it too, behind the line of a script that does it.
TEST_F(ConsoleWindowTest, WhatIsPastedPassesTheFilterOfItsEntry) {
  struct Row {
    const char* source;
    const char* pasted;
    const char* shown;
  };
  for (const Row& row : {
           Row{"Texto T, 1, 1, 20", "a1\r\nb", "a1"},
           Row{"Texto T, 1, 1, 20, 3", "a1\r\nb", "a1\r\nb"},
           Row{"Texto T, 1, 1, 20\nTexto T.Numerico = \"SIM\"", "1.2x34,5", "1234,5"},
           Row{"Mascara T, \"##/##\", 1, 1", "1x2/34\n5", "12/34"},
           Row{"Combo T, 1, 1\nCombo T.Adiciona \"um\"", "u\nm", "u"},
       }) {
    HostedProgram fresh(host.host(), host);
    EditorTexts editors;
    editors[0] = FromSource(row.source);
    ASSERT_EQ(fresh.Start(editors, ""), RunOutcome::Ended) << row.source << err.str();
    Control* const made = LastMade(fresh);
    if (auto* text = dynamic_cast<TextoControl*>(made)) {
      text->Paste(row.pasted);
    } else {
      dynamic_cast<EntryControl&>(*made).Paste(row.pasted);
    }
    EXPECT_EQ(ToUtf8(made->PortraitText()), row.shown) << row.source;
    fresh.janela.windows().OnLineDone();
    EXPECT_EQ(fresh.run.variables.VarRead("T.Txt").ToText(), row.shown) << row.source;
  }
}

}  // namespace tessera::test
