#include "objects/grd_lst_a.h"

#include <memory>

#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kListSize = {.Width = 200, .Height = 100};

}  // namespace

BoxListControl::BoxListControl(Form& form, ControlEvents& events) : Control(form, events, 0, kListSize) {}

void BoxListControl::DoubleClick() {
  Click();
  Events().OnDoubleClick(*this);
}

void BoxListControl::PressRow(int row, bool onCheckBox) {
  if (row < list_.LinIniVet() || row >= list_.LinIniVet() + list_.TotalLinhas()) list_.PosicionaCursor(row);
  const bool isFelt = list_.Click(row - list_.LinIniVet(), onCheckBox);
  Refresh();
  if (isFelt) Click();
}

void BoxListControl::OnKeyDown(int keyCode, KeyShift) {
  const bool isTold = list_.KeyDown(keyCode);
  Refresh();
  if (isTold) TellListKey(Events(), *this, keyCode);
}

void GrdLstA::LoadOn(Form& form) {
  form.LoadControl("GrdLstA", std::make_shared<BoxListControl>(form, *this));
}

void GrdLstA::OnClick(Control& control) {
  events_.Click(control, static_cast<BoxListControl&>(control).List());
}

}  // namespace tessera
