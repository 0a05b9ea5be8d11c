#include "objects/barra_rolagem.h"

#include <algorithm>
#include <cmath>

#include "controls/key_code.h"
#include "objects/object_frame.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr double kThickness = 17;
constexpr double kLength = 120;
constexpr int kShortestThumb = 10;
constexpr std::string_view kBarVer = "BarVer";
constexpr std::string_view kBarHor = "BarHor";
constexpr std::string_view kValor = ".Valor";

constexpr ControlPlace SizeOf(BarDirection direction) {
  if (direction == BarDirection::Vertical) return {.Width = kThickness, .Height = kLength};
  return {.Width = kLength, .Height = kThickness};
}

Value Maximo(const SuffixCall& call) {
  call.As<BarraControl>().SetMax(call.Number().ToInteger());
  return {};
}

Value PassoMenor(const SuffixCall& call) {
  call.As<BarraControl>().SetSmallChange(call.Number().ToInteger());
  return {};
}

Value PassoMaior(const SuffixCall& call) {
  call.As<BarraControl>().SetLargeChange(call.Number().ToInteger());
  return {};
}

Value Valor(const SuffixCall& call) {
  call.As<BarraControl>().SetValue(call.Number().ToInteger());
  call.family.OnChange(call.control);
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo}, {".VISIVEL", suffix::Visivel}, {".INDICETAB", suffix::IndiceTab},
    {".MAXIMO", Maximo},       {".PASSOMENOR", PassoMenor},   {".PASSOMAIOR", PassoMaior},
    {".VALOR", Valor},         {".PAI", suffix::Pai},
};

}  // namespace

// The control

BarraControl::BarraControl(Form& form, ControlEvents& events, int index, BarDirection direction)
    : Control(form, events, index, SizeOf(direction)), direction_(direction) {
  Resized();
  bar_.Change = [this] {
    Refresh();
    Events().OnChange(*this);
  };
}

// The arrows are square, as far as there is room for them and a thumb.
void BarraControl::Resized() {
  const bool isVertical = direction_ == BarDirection::Vertical;
  const int length = static_cast<int>(std::lround(isVertical ? Place().Height : Place().Width));
  const int thickness = static_cast<int>(std::lround(isVertical ? Place().Width : Place().Height));
  const int arrow = std::clamp((length - kShortestThumb) / 2, 0, thickness);
  bar_.IniciaBarra(length, arrow, std::max(kShortestThumb, std::min(thickness, (length - 2 * arrow) / 2)));
}

void BarraControl::SetMax(std::int32_t max) {
  bar_.SetMax(max);
  Refresh();
}

void BarraControl::SetValue(std::int32_t value) {
  bar_.SetValue(value);
  Refresh();
}

void BarraControl::PointerDown(int position) {
  bar_.PointerDown(position);
  Refresh();
}

void BarraControl::PointerMove(int position) {
  bar_.PointerMove(position);
  Refresh();
}

void BarraControl::PointerUp() {
  bar_.PointerUp();
  Refresh();
}

void BarraControl::Tick() {
  bar_.Tick();
  Refresh();
}

// The thumb is dragged there, as far as the bar reaches.
void BarraControl::EnterValue(double value) {
  SetValue(static_cast<std::int32_t>(std::lround(std::clamp<double>(value, 0, bar_.Max()))));
}

void BarraControl::PressArrow(bool up) {
  bar_.Step(up ? 1 : -1);
  Refresh();
}

void BarraControl::OnKeyDown(int keyCode, KeyShift) {
  if (keyCode == key::kRight || keyCode == key::kDown) PressArrow(true);
  if (keyCode == key::kLeft || keyCode == key::kUp) PressArrow(false);
}

// The family

BarraRolagem::BarraRolagem(ObjectFrame& frame) : ObjectFamily(frame, "BarraRolagem", kSuffixes) {}

std::string BarraRolagem::ArrayFor(const Arguments& arguments) {
  return std::string(arguments.Number("tipo").ToInteger() == 0 ? kBarVer : kBarHor);
}

std::shared_ptr<Control> BarraRolagem::NewControl(Form& form, std::string_view array, int index) {
  const BarDirection direction = array == kBarVer ? BarDirection::Vertical : BarDirection::Horizontal;
  return std::make_shared<BarraControl>(form, *this, index, direction);
}

void BarraRolagem::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& bar = static_cast<BarraControl&>(control);
  bar.SetMax(arguments.Number("máximo").ToInteger());
  Place(bar, arguments);
  if (bar.Direction() == BarDirection::Vertical) {
    SetHeight(bar, arguments, "comprimento");
  } else {
    SetWidth(bar, arguments, "comprimento");
  }
}

void BarraRolagem::OnChange(Control& control) {
  TellCompanion(control, kValor, static_cast<BarraControl&>(control).State().Value());
}

}  // namespace tessera
