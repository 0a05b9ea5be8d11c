#include "objects/mascara.h"

#include "objects/object_frame.h"
#include "values/eval.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kEntrySize = {.Width = 120, .Height = 20};
constexpr std::string_view kTxt = ".Txt";

Value Txt(const SuffixCall& call) {
  static_cast<Mascara&>(call.family).SetText(call.As<MascaraControl>(), call.Word());
  return {};
}

Value Mask(const SuffixCall& call) {
  auto& entry = call.As<MascaraControl>();
  entry.SetMask(call.Text());
  call.family.OnChange(entry);
  return {};
}

Value Seleciona(const SuffixCall& call) {
  auto& entry = call.As<MascaraControl>();
  entry.PlaceCaret(0, entry.Text().size());
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ALTURA", suffix::Altura},
    {".TXT", Txt},
    {".SELECIONA", Seleciona},
    {".MASCARA", Mask},
};

}  // namespace

// The control

MascaraControl::MascaraControl(Form& form, ControlEvents& events, int index)
    : EntryControl(form, events, index, kEntrySize) {
  SetBackColor(kWindowColour);
}

void MascaraControl::SetMask(std::string_view mask) {
  field_.SetMask(mask);
  Refresh();
}

void MascaraControl::SetText(std::string_view text) {
  field_.SetText(text);
  Refresh();
}

void MascaraControl::PlaceCaret(std::size_t anchor, std::size_t caret) {
  field_.Select(anchor, caret);
  Refresh();
}

void MascaraControl::OnKeyDown(int keyCode, KeyShift shift) {
  Changed(field_.KeyDown(keyCode, shift.shift));
}

void MascaraControl::OnKeyPress(char character) {
  Changed(field_.KeyPress(character));
}

// The family

Mascara::Mascara(ObjectFrame& frame) : ObjectFamily(frame, "Mascara", kSuffixes, suffix::kOfEntries) {}

std::shared_ptr<Control> Mascara::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<MascaraControl>(form, *this, index);
}

void Mascara::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& entry = static_cast<MascaraControl&>(control);
  entry.SetMask(arguments.Text("máscara"));
  Place(entry, arguments);
  SetWidth(entry, arguments);
  OnChange(entry);
}

void Mascara::SetText(MascaraControl& entry, std::string_view text) {
  entry.SetText(text);
  OnChange(entry);
}

void Mascara::OnChange(Control& control) {
  TellCompanion(control, kTxt, static_cast<MascaraControl&>(control).Text());
}

}  // namespace tessera
