#include "reports/preview_controls.h"

#include "text/number.h"
#include "values/value.h"
#include "windows/form.h"

namespace tessera::reports {

namespace {

constexpr ControlPlace kArrowSize = {.Width = 28, .Height = 26};
constexpr ControlPlace kPageSize = {.Width = 400, .Height = 400};
constexpr Colour kFrameColour = 0xA8A29C;

}  // namespace

SetaControl::SetaControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kArrowSize) {}

void SetaControl::PointerUp(bool inside) {
  if (!isPressed_) return;
  Set(isPressed_, false);
  if (inside) Click();
}

void SetaControl::ClickTitle(std::string_view number) {
  const auto index = WholeNumber(number);
  const auto arrow = index ? form().Controls().Element(kImgSeta, RoundToInteger(*index)) : nullptr;
  if (arrow != nullptr) arrow->Click();
}

PaginaControl::PaginaControl(Form& form, ControlEvents& events, PagePainter& painter)
    : Control(form, events, 0, kPageSize), painter_(painter) {
  SetBackColor(kFrameColour);
}

void PaginaControl::MovePage(double left, double top) {
  left_ = left;
  top_ = top;
  Refresh();
}

}  // namespace tessera::reports
