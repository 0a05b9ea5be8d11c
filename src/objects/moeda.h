// `Moeda`, the entry of a number: the control `EntraNum`.
#pragma once

#include "controls/entra_num.h"
#include "objects/entry_control.h"
#include "objects/object_family.h"

namespace tessera {

class MoedaControl final : public EntryControl {
 public:
  MoedaControl(Form& form, ControlEvents& events, int index);

  double Value() const { return number_.Value(); }
  void SetValue(double value);
  void SetCasas(int casas);

  Line Shown() const override { return LineOf(number_.TxtAux()); }
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  void Paste(std::string_view text) override;
  void EnterValue(double value) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  bool TellsKeyUp() const override { return true; }
  void FocusGained() override { number_.GanhouFoco(); }
  void FocusLost() override { number_.PerdeuFoco(); }
  void EnabledChanged() override { number_.SetEnabled(Enabled()); }

 private:
  EntraNum number_;
};

class Moeda final : public ObjectFamily {
 public:
  explicit Moeda(ObjectFrame& frame);

  // The control's value, and the variable `name.Valor`.
  void SetValue(MoedaControl& entry, double value);

  void OnChange(Control& control) override;
  void OnLostFocus(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
