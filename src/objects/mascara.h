// `Mascara`, the entry behind a mask: the control `TxtMask`.
#pragma once

#include <string_view>

#include "controls/mask_field.h"
#include "objects/entry_control.h"
#include "objects/object_family.h"

namespace tessera {

class MascaraControl final : public EntryControl {
 public:
  MascaraControl(Form& form, ControlEvents& events, int index);

  const std::string& Text() const { return field_.Text(); }
  void SetMask(std::string_view mask);
  void SetText(std::string_view text);

  Line Shown() const override { return LineOf(field_.Field()); }
  void PlaceCaret(std::size_t anchor, std::size_t caret) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  bool TellsKeyUp() const override { return true; }
  void EnabledChanged() override { field_.SetEnabled(Enabled()); }

 private:
  MaskField field_;
};

class Mascara final : public ObjectFamily {
 public:
  explicit Mascara(ObjectFrame& frame);

  // The entry's text, and the variable `name.Txt`.
  void SetText(MascaraControl& entry, std::string_view text);

  void OnChange(Control& control) override;
  // A click in a mask tells nothing.
  void OnClick(Control& /*control*/) override {}

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
