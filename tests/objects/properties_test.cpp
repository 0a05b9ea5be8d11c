// What creating objects and their suffixes makes of the controls: places, looks and states, a row each.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/check.h"
#include "objects/combo.h"
#include "objects/entry_control.h"
#include "objects/texto.h"
#include "support/console_window.h"
#include "support/table.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

// "left,top widthxheight back/fore font size what-is-not-usual [tip] text", the number in the order of Tab,
// how a button, a check and a bar stand, and how many other objects are in front of it, if any.
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
  if (button != nullptr && button->GetStyle() == BotaoControl::Style::Skinned) told << " skinned";
  const auto* check = dynamic_cast<const CheckControl*>(&control);
  if (check != nullptr && check->Value()) told << " ticked";
  const auto* bar = dynamic_cast<const BarraControl*>(&control);
  if (bar != nullptr) told << " at " << bar->State().Value() << " of " << bar->State().Max();
  const std::vector<Control*> order = control.form().Controls().InZOrder();
  const auto isInFront = [](const Control* other) { return !other->Name().empty(); };
  const auto front =
      std::count_if(std::find(order.begin(), order.end(), &control) + 1, order.end(), isInFront);
  if (front > 0) told << " under " << front;
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
  const Table table = TablesOf("objects/properties.txt").at(0);
  for (const auto& [source, told] : table.cases) {
    ConsoleProgram fresh;
    ASSERT_EQ(fresh.program.Start(source), RunOutcome::Ended) << source << fresh.err.str();
    const Control* const made = LastMade(fresh.program);
    ASSERT_NE(made, nullptr) << source;
    EXPECT_EQ(Told(*made) + "\n", told) << source;
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
  EXPECT_EQ(program.Read("C.Txt"), "4");
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
    ASSERT_EQ(fresh.Start(row.source), RunOutcome::Ended) << row.source << err.str();
    Control* const made = LastMade(fresh);
    if (auto* text = dynamic_cast<TextoControl*>(made)) {
      text->Paste(row.pasted);
    } else {
      dynamic_cast<EntryControl&>(*made).Paste(row.pasted);
    }
    EXPECT_EQ(ToUtf8(made->PortraitText()), row.shown) << row.source;
    fresh.janela.windows().OnLineDone();
    EXPECT_EQ(fresh.Read("T.Txt"), row.shown) << row.source;
  }
}

}  // namespace tessera::test
