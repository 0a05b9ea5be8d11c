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
#include "support/table.h"

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
    EXPECT_EQ(fresh.Start(source), RunOutcome::Ended) << source << err.str();
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

// The last line of each program is what is told.
TEST_F(Changes, AProgramsWordsReachTheView) {
  const Table table = TablesOf("objects/changes.txt").at(0);
  for (const auto& [given, told] : table.cases) {
    const std::size_t last = given.rfind('\n') + 1, blank = given.find(' ', last);
    const auto act = [&](HostedProgram& fresh, Control&) {
      fresh.commands.CommandCall(given.substr(last, blank - last), given.substr(blank + 1));
    };
    EXPECT_EQ(Told(given.substr(0, last), act) + "\n", told) << given;
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
           Row{"choice", combo, [](Control& c) { c.Choose(0); }},
           Row{"check", "Check B, 1, 1, \"a\"", [](Control& c) { c.Click(); }},
           Row{"day", "Calendario D, 1, 1", [](Control& c) { c.PickDate("05/06/2007"); }},
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
