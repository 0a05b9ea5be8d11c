#include "objects/link.h"

#include "objects/object_frame.h"
#include "values/eval.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kLinkSize = {.Width = 80, .Height = 18};
constexpr double kMargin = 4;  // pixels beyond the text's height
constexpr Colour kLinkColour = 0xC1632A;

Value Txt(const SuffixCall& call) {
  call.As<LinkControl>().SetText(call.Word());
  return {};
}

Value Address(const SuffixCall& call) {
  call.As<LinkControl>().SetTag(call.Text());
  return {};
}

Value Sublinhado(const SuffixCall& call) {
  call.As<LinkControl>().SetFontUnderline(suffix::IsSim(call));
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo},
    {".VISIVEL", suffix::Visivel},
    {".CORFUNDO", suffix::CorFundo},
    {".CORLETRA", suffix::CorLetra},
    {".NOMEFONTE", suffix::NomeFonte},
    {".TAMFONTE", suffix::TamFonte},
    {".NEGRITO", suffix::Negrito},
    {".ITALICO", suffix::Italico},
    {".SUBLINHADO", Sublinhado},
    {".TXT", Txt},
    {".LINK", Address},
    {".DICA", suffix::Dica},
};

}  // namespace

LinkControl::LinkControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kLinkSize) {
  SetForeColor(kLinkColour);
}

Link::Link(ObjectFrame& frame, Desktop& desktop)
    : ObjectFamily(frame, "Link", kSuffixes), desktop_(desktop) {}

std::shared_ptr<Control> Link::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<LinkControl>(form, *this, index);
}

void Link::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& link = static_cast<LinkControl&>(control);
  Place(link, arguments);
  link.SetText(arguments.Number("texto").ToText());
  link.SetTag(arguments.Text("endereço"));
  const FontFace& font = link.form().Font;
  const TextSize size = link.form().MeasureText(link.Text(), font);
  ControlPlace place = link.Place();
  place.Width = size.width;
  place.Height = size.height + kMargin;
  link.Move(place);
  link.SetFont(font);
}

// OPEN: what opens is the address; a link without one opens its text.
void Link::OnClick(Control& control) {
  ObjectFamily::OnClick(control);
  const auto& link = static_cast<LinkControl&>(control);
  desktop_.OpenAddress(link.Tag().empty() ? link.Text() : link.Tag());
  link.form().MoveFocus(nullptr);
}

}  // namespace tessera
