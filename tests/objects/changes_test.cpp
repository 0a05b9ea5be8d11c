// Each change that a person can see is told to the view of its control: by the program's words, keys and
// pointer.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/box_control.h"
#include "objects/calendario.h"
#include "objects/combo.h"
#include "objects/texto.h"
#include "support/console_window.h"

namespace tessera::test {
namespace {

// Writes down a letter for each property that it is told of, once.
class Noted final : public ControlView {
 public:
  Noted(Control& control, std::string& told) : ControlView(control), told_(told) {}
  void Follow(ControlProperty changed) override { Note("NPVEKFTROC"[static_cast<int>(changed)]); }
  void TakeFocus() override { Note('!'); }

 private:
  void Note(char letter) {
    if (told_.find(letter) == std::string::npos) told_ += letter;
  }
  std::string& told_;
};

class Changes : public ConsoleWindowTest {
 protected:
  // What the views of the program's objects are told while that is done.
  std::string Told(std::string_view source, const std::function<void(HostedProgram&, Control&)>& act) {
    HostedProgram fresh(host.host(), host);
    EditorTexts editors;
    editors[0] = FromSource(source);
    EXPECT_EQ(fresh.Start(editors, ""), RunOutcome::Ended) << source << err.str();
    std::string told;
    Control* last = nullptr;
    for (Control* control : fresh.janela.form().Controls().InZOrder()) {
      control->TakeView(std::make_unique<Noted>(*control, told));
      if (last == nullptr || control->Number() > last->Number()) last = control;
    }
    act(fresh, *last);
    return told;
  }
};

constexpr const char* kGrid =
    "Box G, 1, 1, 10\nBox G.Titulo, \"a\", 20\nBox G.Ativa\nBox G.Add 1\nBox G.New\nBox G.Add 2\nBox G.New\n"
    "Box G.Fim\nBox G.AlteraCelula = \"SIM\"";

template <typename T>
T& As(Control& control) {
  return dynamic_cast<T&>(control);
}

TEST_F(Changes, AProgramsWordsReachTheView) {
  struct Row {
    const char* source;
    const char* word;
    const char* rest;
    const char* told;
  };
  for (const Row& row : {
           Row{"Texto T, 1, 1", "Texto", "T.Txt = \"x\"", "C"},
           Row{"Texto T, 1, 1", "Texto", "T.Justifica = 2", "C"},
           Row{"Texto T, 1, 1", "Texto", "T.MargemDireita = 9", "C"},
           Row{"Texto T, 1, 1", "Texto", "T.PosCursor = 0", "C"},
           Row{"Texto T, 1, 1", "Texto", "T.TextoRTF = \"{\\rtf1 a}\"", "C"},
           Row{"Texto T, 1, 1", "Texto", "T.MoveFoco", "!C"},
           Row{"Texto T, 1, 1", "Texto", "T.NomeFonte = \"Arial\"", "F"},
           Row{"Texto T, 1, 1", "Texto", "T.Dica = \"d\"", "T"},
           Row{"Texto T, 1, 1", "Texto", "T.Visivel = \"NAO\"", "V"},
           Row{"Texto T, 1, 1", "Texto", "T.Ativo = \"NAO\"", "E"},
           Row{"Texto T, 1, 1", "Texto", "T.CorFundo = 1", "K"},
           Row{"Texto T, 1, 1\nTexto T.Txt = \"ab\"\nTexto T.Seleciona", "Texto", "T.CorLetra = 1", "C"},
           Row{"Rotulo R, \"a\", 1, 1", "Rotulo", "R.Txt = \"b\"", "C"},
           Row{"Rotulo R, \"a\", 1, 1", "Rotulo", "R.Justifica = 1", "C"},
           Row{"Moeda V, 1, 1", "Moeda", "V.Valor = 3", "C"},
           Row{"Moeda V, 1, 1", "Moeda", "V.Casas = 3", "C"},
           Row{"Moeda V, 1, 1", "Moeda", "V.Altura = 3", "P"},
           Row{"Mascara M, \"#\", 1, 1", "Mascara", "M.Mascara = \"##\"", "C"},
           Row{"Mascara M, \"#\", 1, 1", "Mascara", "M.Txt = \"1\"", "C"},
           Row{"Calendario D, 1, 1", "Calendario", "D.Txt = \"01/02/2003\"", "C"},
           Row{"Combo C, 1, 1", "Combo", "C.Adiciona \"a\"", "C"},
           Row{"Combo C, 1, 1", "Combo", "C.Txt = \"a\"", "C"},
           Row{"Combo C, 1, 1", "Combo", "C.Linhas = 9", "C"},
           Row{"BarraRolagem S, 1, 1, 9, 1, 9", "BarraRolagem", "S.Maximo = 5", "C"},
           Row{"BarraRolagem S, 1, 1, 9, 1, 9", "BarraRolagem", "S.Valor = 5", "C"},
           Row{"MenuSistema \"GUIA\", 0, \"\", \"a\"", "MenuSistema", "\"GUIA\", 1, \"\", \"b\"", "C"},
           Row{"MenuSistema \"GUIA\", 0, \"\", \"a\"", "MenuSistema", "\"GUIA\", 0, \"OPCAO\", \"b\"", "C"},
           Row{"MenuSistema \"GUIA\", 0, \"\", \"a\"", "MenuSistema", "\"INICIA\"", "C"},
           Row{"GifAnimado G, \"GifSapo1\", 0, 2, 3", "GifAnimado", "G.ProximoFrame", "C"},
           Row{"GifAnimado G, \"GifSapo1\", 0, 2, 3", "GifAnimado", "G.Atras", "O"},
           Row{"GifAnimado G, \"GifSapo1\", 0, 2, 3", "GifAnimado", "G.Frente", "O"},
           Row{"GifAnimado G, \"GifSapo1\", 0, 2, 3\nGifAnimado G.Remove", "GifAnimado",
               "H, \"GifSapo1\", 0, 2, 3", "NPOCV"},
           Row{"Imagem I, \"\", 1, 1, 9, 9", "Imagem", "I.Ordem = \"frente\"", "O"},
           Row{"Imagem I, \"\", 1, 1, 9, 9", "Imagem", "I.Ordem = \"atras\"", "O"},
           Row{"Imagem I, \"\", 1, 1, 9, 9\nBotao B, 1, 1", "Botao", "B.Pai = \"I\"", "R"},
           Row{"Imagem I, \"\", 1, 1, 9, 9\nBotao B, 1, 1\nBotao B.Pai = \"I\"", "Botao", "B.Remove", "VR"},
       }) {
    EXPECT_EQ(Told(row.source,
                   [&](HostedProgram& fresh, Control&) { fresh.commands.CommandCall(row.word, row.rest); }),
              row.told)
        << row.word << " " << row.rest;
  }
}

TEST_F(Changes, WhatAPersonDoesReachesTheView) {
  struct Row {
    const char* what;
    const char* source;
    std::function<void(Control&)> act;
  };
  const char* const button = "Botao B, 1, 1";
  const char* const combo = "Combo C, 1, 1\nCombo C.Adiciona \"a\"";
  const char* const bar = "BarraRolagem S, 1, 1, 9, 1, 9";
  for (const Row& row : {
           Row{"press", button, [](Control& c) { As<BotaoControl>(c).PointerDown(); }},
           Row{"move", button, [](Control& c) { As<BotaoControl>(c).PointerMove(true); }},
           Row{"let go", button, [](Control& c) { As<BotaoControl>(c).PointerUp(false); }},
           Row{"arrow", combo, [](Control& c) { As<ComboControl>(c).ArrowClick(); }},
           Row{"hover", combo, [](Control& c) { As<ComboControl>(c).ListHover(0); }},
           Row{"wheel", combo, [](Control& c) { As<ComboControl>(c).Wheel(1); }},
           Row{"nothing there", combo, [](Control& c) { As<ComboControl>(c).ListClick(7); }},
           Row{"caret", combo, [](Control& c) { As<ComboControl>(c).PlaceCaret(0, 0); }},
           Row{"bar down", bar, [](Control& c) { As<BarraControl>(c).PointerDown(0); }},
           Row{"bar move", bar, [](Control& c) { As<BarraControl>(c).PointerMove(0); }},
           Row{"bar up", bar, [](Control& c) { As<BarraControl>(c).PointerUp(); }},
           Row{"bar tick", bar, [](Control& c) { As<BarraControl>(c).Tick(); }},
           Row{"month", "Calendario D, 1, 1", [](Control& c) { As<CalendarioControl>(c).ShowMonth(1); }},
           Row{"month list", "Calendario D, 1, 1",
               [](Control& c) { As<CalendarioControl>(c).ButtonClick(); }},
           Row{"date", "Calendario D, 1, 1", [](Control& c) { As<EntryControl>(c).PlaceCaret(0, 1); }},
           Row{"mask", "Mascara M, \"#\", 1, 1", [](Control& c) { As<EntryControl>(c).PlaceCaret(0, 1); }},
           Row{"number", "Moeda V, 1, 1", [](Control& c) { As<EntryControl>(c).PlaceCaret(0, 1); }},
           Row{"number key", "Moeda V, 1, 1", [](Control& c) { c.OnKeyDown(36, {}); }},
           Row{"mask key", "Mascara M, \"#\", 1, 1", [](Control& c) { c.OnKeyDown(36, {}); }},
           Row{"combo key", combo, [](Control& c) { c.OnKeyDown(36, {}); }},
           Row{"text", "Texto T, 1, 1", [](Control& c) { As<TextoControl>(c).PlaceCaret(0, 0); }},
           Row{"key", "Texto T, 1, 1", [](Control& c) { c.OnKeyDown(36, {}); }},
           Row{"grid down", kGrid, [](Control& c) { As<BoxControl>(c).PointerDown(30, 5); }},
           Row{"grid move", kGrid, [](Control& c) { As<BoxControl>(c).PointerMove(30, 5); }},
           Row{"grid up", kGrid, [](Control& c) { As<BoxControl>(c).PointerUp(-1, 5); }},
           Row{"grid wheel", kGrid, [](Control& c) { As<BoxControl>(c).Scroll(1); }},
           Row{"grid tick", kGrid, [](Control& c) { As<BoxControl>(c).Tick(); }},
           Row{"grid key", kGrid, [](Control& c) { c.OnKeyDown(40, {}); }},
           Row{"grid edit", kGrid, [](Control& c) { As<BoxControl>(c).EditCell(0, 0, ""); }},
       }) {
    EXPECT_EQ(Told(row.source, [&](HostedProgram&, Control& control) { row.act(control); }), "C") << row.what;
  }
}

}  // namespace
}  // namespace tessera::test
