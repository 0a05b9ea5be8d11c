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
  // The open list is so many pixels high, in whole rows.
  void SetListHeight(double pixels);
  double RowHeight() const;

  // The arrow beside the field; in the open list an entry, from 0, below the pointer or clicked, and the
  // wheel.
  void ArrowClick();
  void PressDropButton() override { ArrowClick(); }
  void ListHover(std::ptrdiff_t entry);
  void ListClick(std::ptrdiff_t entry);
  void Wheel(std::ptrdiff_t rows);

  Line Shown() const override { return LineOf(combo_.TxtAux()); }
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  // The text as it stands, with no completion.
  void Paste(std::string_view text) override;
  void ReplaceText(std::string_view text) override;
  void Choose(int entry) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  void FocusLost() override { combo_.PerdeuFoco(); }
  void EnabledChanged() override { combo_.SetEnabled(Enabled()); }

 private:
  SpCombo combo_;
};

class Combo final : public ObjectFamily {
 public:
  explicit Combo(ObjectFrame& frame);

  // The field's text, and the variable `name.Txt`.
  void SetText(ComboControl& combo, std::string_view text);

  void OnChange(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
