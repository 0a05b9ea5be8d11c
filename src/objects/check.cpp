#include "objects/check.h"

#include "controls/key_code.h"
#include "objects/object_frame.h"
#include "platform/failure.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kCheckSize = {.Width = 100, .Height = 18};
constexpr double kBoxAllowance = 25;  // pixels beside the caption
constexpr std::string_view kValor = ".Valor";

Value Valor(const SuffixCall& call) {
  static_cast<Check&>(call.family).SetValue(call.As<CheckControl>(), call.Number().ToInteger() != 0);
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo},
    {".VISIVEL", suffix::Visivel},
    {".CORFUNDO", suffix::CorFundo},
    {".CORLETRA", suffix::CorLetra},
    {".MOVEFOCO", suffix::MoveFoco},
    {".INDICETAB", suffix::IndiceTab},
    {".VALOR", Valor},
    {".DICA", suffix::Dica},
    {".PAI", suffix::Pai},
};

std::int32_t NumberOf(bool value) {
  return value ? 1 : 0;
}

}  // namespace

// The controls

CheckControl::CheckControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kCheckSize) {}

void CheckControl::Click() {
  SetValue(!value_);
  Events().OnClick(*this);
}

void CheckControl::EnterValue(double value) {
  if ((value != 0) != value_) Click();
}

void CheckControl::OnKeyDown(int keyCode, KeyShift) {
  if (keyCode == key::kSpace) Click();
}

void OpcaoControl::Click() {
  SetValue(true);
  Events().OnClick(*this);
}

void OpcaoControl::EnterValue(double) {
  Click();
}

// The arrows go to the next option, which is chosen with the focus.
void OpcaoControl::OnKeyDown(int keyCode, KeyShift shift) {
  const bool forward = keyCode == key::kDown || keyCode == key::kRight;
  const bool back = keyCode == key::kUp || keyCode == key::kLeft;
  if (!forward && !back) return CheckControl::OnKeyDown(keyCode, shift);
  form().FocusNext(forward);
  if (auto* next = dynamic_cast<OpcaoControl*>(form().Focus())) next->Click();
}

// `Check`

Check::Check(ObjectFrame& frame) : Check(frame, "Check") {}

Check::Check(ObjectFrame& frame, std::string_view word) : ObjectFamily(frame, word, kSuffixes) {}

std::shared_ptr<Control> Check::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<CheckControl>(form, *this, index);
}

void Check::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& check = static_cast<CheckControl&>(control);
  TakeCaption(check, arguments);
  check.SetValue(false);
  Guard([&] { SetValue(check, arguments.Number("valor").ToInteger() != 0); });
}

// The width is that of the caption in the window's font, which the control takes.
void Check::TakeCaption(CheckControl& check, const Arguments& arguments) const {
  Place(check, arguments);
  const std::string caption = arguments.Number("legenda").ToText();
  const FontFace& font = check.form().Font;
  const TextSize size = check.form().MeasureText(caption, font);
  ControlPlace place = check.Place();
  place.Width = size.width + kBoxAllowance;
  place.Height = std::max(kCheckSize.Height, size.height);
  check.Move(place);
  check.SetFont(font);
  check.SetCaption(caption);
}

void Check::SetValue(CheckControl& check, bool value) {
  check.SetValue(value);
  TellCompanion(check, kValor, NumberOf(value));
}

void Check::OnClick(Control& control) {
  ObjectFamily::OnClick(control);
  TellCompanion(control, kValor, NumberOf(static_cast<CheckControl&>(control).Value()));
}

// `Opcao`

Opcao::Opcao(ObjectFrame& frame) : Check(frame, "Opcao") {}

std::shared_ptr<Control> Opcao::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<OpcaoControl>(form, *this, index);
}

void Opcao::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& option = static_cast<OpcaoControl&>(control);
  TakeCaption(option, arguments);
  option.SetValue(false);
}

void Opcao::SetValue(CheckControl& option, bool value) {
  if (value) GiveUpOthers(option);
  Check::SetValue(option, value);
}

void Opcao::OnClick(Control& control) {
  GiveUpOthers(static_cast<CheckControl&>(control));
  Check::OnClick(control);
}

// All rows of the family, on whatever window they stand.
void Opcao::GiveUpOthers(const CheckControl& option) {
  for (const ObjectRow& row : Rows()) {
    const auto other = std::static_pointer_cast<CheckControl>(row.object.lock());
    if (!other || row.name.empty() || other.get() == &option) continue;
    Check::SetValue(*other, false);
  }
}

}  // namespace tessera
