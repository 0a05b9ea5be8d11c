// `Combo`, a field with a list of entries: the control `SpCombo`.
#pragma once

#include <string_view>

#include "controls/sp_combo.h"
#include "objects/entry_control.h"
#include "objects/object_family.h"

namespace tessera {

class ComboControl final : public EntryControl {
 public:
  ComboControl(Form& form, ControlEvents& events, int index);

  const SpCombo& State() const { return combo_; }
  void SetText(std::string_view text);
  void AddItem(std::string_view text);
  // Pixels of the open list.
  double ListHeight() const { return listHeight_; }
  void SetListHeight(double pixels) { Set(listHeight_, pixels); }

  // The arrow beside the field, and an entry of the open list, from 0.
  void ArrowClick();
  void ListClick(std::ptrdiff_t entry);

  Line Shown() const override { return LineOf(combo_.TxtAux()); }
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  // The text as it stands, with no completion.
  void ReplaceText(std::string_view text) override;
  void Choose(int entry) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  void FocusLost() override { combo_.PerdeuFoco(); }
  void EnabledChanged() override { combo_.SetEnabled(Enabled()); }

 private:
  SpCombo combo_;
  double listHeight_;
};

class Combo final : public ObjectFamily {
 public:
  explicit Combo(ObjectFrame& frame);

  // The field's text, and the variable `name.Txt`.
  void SetText(ComboControl& combo, std::string_view text);

  void OnChange(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Settings& arguments) override;
};

}  // namespace tessera
