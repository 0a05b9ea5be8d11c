#include "objects/moeda.h"

#include "objects/object_frame.h"
#include "text/number.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kEntrySize = {.Width = 120, .Height = 20};
constexpr std::string_view kValor = ".Valor";

Value Casas(const SuffixCall& call) {
  call.As<MoedaControl>().SetCasas(call.Number().ToInteger());
  return {};
}

Value Valor(const SuffixCall& call) {
  static_cast<Moeda&>(call.family).SetValue(call.As<MoedaControl>(), call.Number().ToDouble());
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ALTURA", suffix::Altura},
    {".CASAS", Casas},
    {".VALOR", Valor},
};

}  // namespace

// The control

MoedaControl::MoedaControl(Form& form, ControlEvents& events, int index)
    : EntryControl(form, events, index, kEntrySize) {
  SetBackColor(kWindowColour);
}

void MoedaControl::SetValue(double value) {
  number_.SetValue(value);
  Refresh();
}

void MoedaControl::SetCasas(int casas) {
  number_.SetCasas(casas);
  Refresh();
}

void MoedaControl::PlaceCaret(std::size_t anchor, std::size_t caret) {
  number_.PlaceCaret(anchor, caret);
  Refresh();
}

void MoedaControl::EnterValue(double value) {
  ReplaceText(NumberText(value));
}

void MoedaControl::Paste(std::string_view text) {
  Changed(number_.Paste(FirstLine(text)));
}

void MoedaControl::OnKeyDown(int keyCode, KeyShift shift) {
  Changed(number_.KeyDown(keyCode, shift.shift));
}

void MoedaControl::OnKeyPress(char character) {
  Changed(number_.KeyPress(character));
}

// The family

Moeda::Moeda(ObjectFrame& frame) : ObjectFamily(frame, "Moeda", kSuffixes, suffix::kOfEntries) {}

std::shared_ptr<Control> Moeda::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<MoedaControl>(form, *this, index);
}

void Moeda::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  Place(control, arguments);
  SetWidth(control, arguments);
  static_cast<MoedaControl&>(control).SetValue(0);
}

void Moeda::SetValue(MoedaControl& entry, double value) {
  entry.SetValue(value);
  TellCompanion(entry, kValor, value);
}

void Moeda::OnChange(Control& control) {
  TellCompanion(control, kValor, static_cast<MoedaControl&>(control).Value());
}

void Moeda::OnLostFocus(Control& control) {
  ObjectFamily::OnLostFocus(control);
  OnChange(control);
}

}  // namespace tessera
