// `GrdLstA`, the list `BoxList` that stands hidden on each window. No command fills or shows it; what is told
// here is how it feels a person, and that its events are those of a list.
#pragma once

#include "controls/box_list.h"
#include "objects/list_events.h"
#include "windows/control.h"

namespace tessera {

class BoxListControl final : public Control {
 public:
  BoxListControl(Form& form, ControlEvents& events);

  BoxList& List() { return list_; }

  void Click() override { Events().OnClick(*this); }
  void DoubleClick() override;
  // A click on a row, scrolled into view, or on its check box.
  void ClickRow(int row) override { PressRow(row, false); }
  void PressRow(int row, bool onCheckBox);
  void OnKeyDown(int keyCode, KeyShift shift) override;

 protected:
  void FocusGained() override { list_.SetFocus(true); }
  void FocusLost() override { list_.SetFocus(false); }
  void EnabledChanged() override { list_.SetEnabled(Enabled()); }

 private:
  BoxList list_;
};

class GrdLstA final : public ControlEvents {
 public:
  explicit GrdLstA(ObjectFrame& frame) : events_(frame) {}

  // Element 0 of the window.
  void LoadOn(Form& form);

  void OnClick(Control& control) override;
  void OnDoubleClick(Control& control) override { events_.DoubleClick(control); }
  void OnGotFocus(Control& control) override { events_.Focus("GanhouFoco", control); }
  void OnLostFocus(Control& control) override { events_.Focus("PerdeuFoco", control); }

 private:
  ListEvents events_;
};

}  // namespace tessera
