#include "objects/rotulo.h"

#include <algorithm>

#include "objects/object_frame.h"
#include "text/lines.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kLabelSize = {.Width = 80, .Height = 20};
constexpr std::string_view kTxt = ".Txt";

// As wide as the widest line. A line has the height of a label, and each further one what it needs.
TextSize SizeOf(const Form& form, std::string_view text, const FontFace& font) {
  TextSize size;
  EachLine(text, [&](std::string_view line) {
    const TextSize needed = form.MeasureText(line, font);
    size.width = std::max(size.width, needed.width);
    size.height += size.height == 0 ? std::max(kLabelSize.Height, needed.height) : needed.height;
  });
  return size;
}

Value Txt(const SuffixCall& call) {
  static_cast<Rotulo&>(call.family).SetText(call.As<RotuloControl>(), call.Word());
  return {};
}

Value Justifica(const SuffixCall& call) {
  call.As<RotuloControl>().SetAlignment(suffix::AlignmentOf(call));
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
    {".INDICETAB", suffix::IndiceTab},
    {".TXT", Txt},
    {".DICA", suffix::Dica},
    {".JUSTIFICA", Justifica},
    {".PAI", suffix::Pai},
};

}  // namespace

RotuloControl::RotuloControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kLabelSize) {}

Rotulo::Rotulo(ObjectFrame& frame) : ObjectFamily(frame, "Rotulo", kSuffixes) {}

std::shared_ptr<Control> Rotulo::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<RotuloControl>(form, *this, index);
}

// OPEN: without a width or height the label is as large as its text needs, so that nothing of it is cut off.
void Rotulo::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& label = static_cast<RotuloControl&>(control);
  label.SetFont({.name = "MS Sans Serif", .size = 8});
  const std::string text = arguments.Number("texto").ToText();
  SetText(label, text);
  Place(label, arguments);
  ControlPlace place = label.Place();
  const TextSize needed = SizeOf(label.form(), text, label.Font());
  place.Width = needed.width;
  place.Height = needed.height;
  label.Move(place);
  SetWidth(label, arguments);
  SetHeight(label, arguments);
}

void Rotulo::SetText(RotuloControl& label, std::string_view text) {
  label.SetCaption(text);
  TellCompanion(label, kTxt, std::string(text));
}

}  // namespace tessera
