#include "objects/combo.h"

#include "objects/object_frame.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr ControlPlace kComboSize = {.Width = 140, .Height = 20};
constexpr double kRowMargin = 4;  // pixels of a row beyond its text
constexpr std::string_view kTxt = ".Txt";

Value Adiciona(const SuffixCall& call) {
  call.As<ComboControl>().AddItem(call.Nth("texto").ToText());
  return {};
}

Value Txt(const SuffixCall& call) {
  static_cast<Combo&>(call.family).SetText(call.As<ComboControl>(), call.Word());
  return {};
}

Value Linhas(const SuffixCall& call) {
  call.As<ComboControl>().SetListHeight(call.Number().ToDouble() * call.frame.windows().TamLin);
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ADICIONA", Adiciona},
    {".TXT", Txt},
    {".LINHAS", Linhas},
};

}  // namespace

// The control

ComboControl::ComboControl(Form& form, ControlEvents& events, int index)
    : EntryControl(form, events, index, kComboSize) {
  SetBackColor(kWindowColour);
}

void ComboControl::SetText(std::string_view text) {
  combo_.SetText(text);
  Refresh();
}

void ComboControl::AddItem(std::string_view text) {
  combo_.AddItem(text);
  Refresh();
}

void ComboControl::ArrowClick() {
  combo_.ArrowClick();
  Refresh();
}

double ComboControl::RowHeight() const {
  return form().MeasureText("A", Font()).height + kRowMargin;
}

void ComboControl::SetListHeight(double pixels) {
  combo_.SetListHeight(static_cast<std::ptrdiff_t>(pixels / RowHeight()));
  Refresh();
}

void ComboControl::ListHover(std::ptrdiff_t entry) {
  combo_.ListHover(entry);
  Refresh();
}

void ComboControl::Wheel(std::ptrdiff_t rows) {
  combo_.Wheel(rows);
  Refresh();
}

void ComboControl::ListClick(std::ptrdiff_t entry) {
  const bool chosen = combo_.ListClick(entry);
  Refresh();
  if (!chosen) return;
  Events().OnClick(*this);
  Events().OnChange(*this);
}

void ComboControl::PlaceCaret(std::size_t anchor, std::size_t caret) {
  combo_.PlaceCaret(anchor, caret);
  Refresh();
}

void ComboControl::Paste(std::string_view text) {
  Changed(combo_.Paste(FirstLine(text)));
}

void ComboControl::ReplaceText(std::string_view text) {
  const bool isNews = text != combo_.Text();
  combo_.SetText(text);
  Changed(isNews);
}

void ComboControl::Choose(int entry) {
  if (!combo_.ListIsOpen()) ArrowClick();
  ListClick(entry);
  if (combo_.ListIsOpen()) ArrowClick();
}

void ComboControl::OnKeyDown(int keyCode, KeyShift shift) {
  Changed(combo_.KeyDown(keyCode, shift.shift));
}

void ComboControl::OnKeyPress(char character) {
  Changed(combo_.KeyPress(character));
}

// The family

Combo::Combo(ObjectFrame& frame) : ObjectFamily(frame, "Combo", kSuffixes, suffix::kOfEntries) {}

std::shared_ptr<Control> Combo::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<ComboControl>(form, *this, index);
}

void Combo::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& combo = static_cast<ComboControl&>(control);
  Place(combo, arguments);
  SetWidth(combo, arguments);
  combo.SetText("");
}

void Combo::SetText(ComboControl& combo, std::string_view text) {
  combo.SetText(text);
  OnChange(combo);
}

void Combo::OnChange(Control& control) {
  TellCompanion(control, kTxt, static_cast<ComboControl&>(control).State().Text());
}

}  // namespace tessera
