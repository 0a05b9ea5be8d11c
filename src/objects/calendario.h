// `Calendario`, the entry of a date: the control of the same name.
#pragma once

#include <string>
#include <string_view>

#include "controls/calendario.h"
#include "objects/entry_control.h"
#include "objects/object_family.h"

namespace tessera {

class CalendarioControl final : public EntryControl {
 public:
  CalendarioControl(Form& form, ControlEvents& events, int index, DateTime today);

  const Calendario& State() const { return calendar_; }
  void SetValue(DateTime date);

  // The button beside the field, and the open month view: another month, a day.
  void ButtonClick();
  void PressDropButton() override { ButtonClick(); }
  void ShowMonth(int monthsFromHere);
  void Pick(DateTime date);

  Line Shown() const override;
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  void PickDate(std::string_view date) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;
  void DoubleClick() override { Events().OnDoubleClick(*this); }

 protected:
  void FocusLost() override { calendar_.PerdeuFoco(); }
  void EnabledChanged() override { calendar_.SetEnabled(Enabled()); }

 private:
  Calendario calendar_;
};

// The command; the control itself has its name.
class CalendarioFamily final : public ObjectFamily {
 public:
  explicit CalendarioFamily(ObjectFrame& frame);

  void SetText(CalendarioControl& calendar, std::string_view date);

  void OnChange(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  std::string LookupName(std::string_view written) override;
};

}  // namespace tessera
