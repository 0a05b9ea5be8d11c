// A third host, as a page in another process would be one: it knows of windows and controls just what it is
// told, and copies a property only when that property is named.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "windows/display.h"

namespace tessera::test {

namespace {

struct PageControl {
  const Control* model = nullptr;
  std::string name;
  ControlPlace place;
  bool visible = false;
  bool enabled = true;
  Colour back = 0;
  Colour fore = 0;
  FontFace font;
  std::string toolTip;
};

class PageView final : public ControlView {
 public:
  PageView(Control& control, std::map<int, PageControl>& page) : ControlView(control), page_(page) {
    page_[control.Number()].model = &control;
    for (const auto property :
         {ControlProperty::Name, ControlProperty::Place, ControlProperty::Visible, ControlProperty::Enabled,
          ControlProperty::Colours, ControlProperty::Font, ControlProperty::ToolTip}) {
      Follow(property);
    }
  }
  void Follow(ControlProperty changed) override {
    PageControl& shown = page_[control().Number()];
    switch (changed) {
      case ControlProperty::Name:
        shown.name = control().Name();
        break;
      case ControlProperty::Place:
        shown.place = control().Place();
        break;
      case ControlProperty::Visible:
        shown.visible = control().Visible();
        break;
      case ControlProperty::Enabled:
        shown.enabled = control().Enabled();
        break;
      case ControlProperty::Colours:
        shown.back = control().BackColor();
        shown.fore = control().ForeColor();
        break;
      case ControlProperty::Font:
        shown.font = control().Font();
        break;
      case ControlProperty::ToolTip:
        shown.toolTip = control().ToolTipText();
        break;
      case ControlProperty::Parent:
      case ControlProperty::Order:
      case ControlProperty::Content:
        break;
    }
  }
  void TakeFocus() override {}

 private:
  std::map<int, PageControl>& page_;
};

class PageForm final : public Form {
 public:
  using Form::Form;
  ~PageForm() override { UnloadControls(); }
  TextSize MeasureText(std::string_view text, const FontFace&) const override {
    return {.width = 8.0 * static_cast<double>(text.size()), .height = 14};
  }

  std::string caption;
  Placement place;
  bool visible = false;
  Raster drawn;
  std::map<int, PageControl> controls;

 protected:
  void ShowCaption() override { caption = Caption(); }
  void ShowPlace() override { place = Place(); }
  void ShowVisible() override { visible = Visible(); }
  void ShowErased() override { drawn.Clear(); }
  void ShowDrawn(const Spans& spans, Pixel pixel) override {
    drawn.Grow({static_cast<int>(ScaleWidth()), static_cast<int>(ScaleHeight())});
    for (const Span& span : spans) drawn.Fill(span, pixel);
  }
  std::unique_ptr<ControlView> NewView(Control& control) override {
    return std::make_unique<PageView>(control, controls);
  }
  void ServeModal() override {}
};

class Page final : public Display {
 public:
  std::unique_ptr<Form> NewMainForm(const Placement& place, FormEvents& events,
                                    const WindowDirectory&) override {
    return NewForm("", place, events);
  }
  std::unique_ptr<Form> NewForm(std::string_view, const Placement& place, FormEvents& events) override {
    auto form = std::make_unique<PageForm>(events, place);
    forms.push_back(form.get());
    return form;
  }
  void TellAbandonedRun(std::string_view, std::string_view description) override {
    FAIL() << "the run was abandoned: " << description;
  }
  void ServeEvents() override {}
  ScreenSize ScreenExtent() override { return {.Width = 28800, .Height = 16200}; }
  std::vector<std::string> FontNames() override { return {"Arial"}; }
  void ShowPointer(bool) override {}
  PointerPlace Pointer() override { return {}; }
  std::string SetVideoMode(const VideoMode&) override { return "não"; }

  std::vector<PageForm*> forms;
};

}  // namespace

TEST(Page, WhatIsToldMakesTheSameWindowsAndControls) {
  std::istringstream in;
  std::ostringstream out;
  ConsoleHost console({in, out, out}, {});
  Page page;
  HostedProgram program(console.host(), page);
  ASSERT_EQ(
      program.Start(
          "Escreva \"Cadastro\", TituloJanela\nJanela TAMANHO = 30, 90\nRotulo r, \"Nome\", 1, 1\n"
          "Texto t, 2, 1, 20\nMoeda m, 4, 1, 9\nMascara k, \"##/##\", 5, 1, 9\n"
          "Botao b, 6, 1, 2, 8, \"Grava\"\nCheck c, 8, 1, \"Ativo\", 1\nBarraRolagem s, 9, 1, 20, 1\n"
          "Combo o, 10, 1, 10\nCalendario d, 11, 1, 10\nMoldura q, \"Dados\", 12, 1, 4, 20\n"
          "Link l, 13, 1, \"aqui\", \"x.org\"\nTexto t.Txt = \"Maria\"\nTexto t.CorFundo = Amarelo\n"
          "Texto t.NomeFonte = \"Arial\"\nTexto t.TamFonte = 12\nTexto t.Dica = \"o nome\"\n"
          "Moeda m.CorLetra = Vermelho\nBotao b.Ativo = \"NAO\"\nRotulo r.Visivel = \"NAO\"\n"
          "Rotulo r.Negrito = \"SIM\"\nMascara k.Altura = 2\nMascara k.IndiceTab = 1\n"
          "Circulo 5, 40, 3, Azul\nRetangulo 1, 60, 3, 70, Vermelho\nGradiente 1, 255\nPinte 5, 40, Verde\n"
          "NovaJanela DEFINE, j\nNovaJanela j.ATIVA\nNovaJanela j.TAMANHO = 10, 20\n"),
      RunOutcome::Ended)
      << out.str();
  ASSERT_EQ(page.forms.size(), 2U);
  for (PageForm* form : page.forms) {
    EXPECT_EQ(form->caption, form->Caption());
    EXPECT_EQ(form->visible, form->Visible());
    EXPECT_EQ(form->place.Width, form->Place().Width);
    EXPECT_EQ(form->place.Height, form->Place().Height);
  }
  PageForm& main = *page.forms.front();
  for (int y = 0; y < main.drawn.size().height; y += 3) {
    for (int x = 0; x < main.drawn.size().width; x += 3) {
      const Pixel shown = main.drawn.At(x, y);
      const auto read = static_cast<Pixel>(main.Point({x, y}));
      ASSERT_EQ(shown & 0xFFFFFF, (read & 0xFF) << 16 | (read & 0xFF00) | read >> 16) << x << ", " << y;
    }
  }
  EXPECT_GE(main.controls.size(), 11U) << "controls are known by numbers of their own";
  for (const auto& [number, shown] : main.controls) {
    const Control& control = *shown.model;
    EXPECT_EQ(shown.name, control.Name()) << number;
    EXPECT_EQ(shown.place.Left, control.Place().Left) << shown.name;
    EXPECT_EQ(shown.place.Height, control.Place().Height) << shown.name;
    EXPECT_EQ(shown.visible, control.Visible()) << shown.name;
    EXPECT_EQ(shown.enabled, control.Enabled()) << shown.name;
    EXPECT_EQ(shown.back, control.BackColor()) << shown.name;
    EXPECT_EQ(shown.fore, control.ForeColor()) << shown.name;
    EXPECT_EQ(shown.font, control.Font()) << shown.name;
    EXPECT_EQ(shown.toolTip, control.ToolTipText()) << shown.name;
  }
}

}  // namespace tessera::test
