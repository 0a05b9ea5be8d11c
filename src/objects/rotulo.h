// `Rotulo`, the label: the control `Rot` on the main window.
#pragma once

#include <string>
#include <string_view>

#include "controls/text_align.h"
#include "objects/object_family.h"

namespace tessera {

class RotuloControl final : public Control {
 public:
  RotuloControl(Form& form, ControlEvents& events, int index);

  // May hold several lines; longer ones wrap at the control's width.
  const std::string& Caption() const { return caption_; }
  std::string PortraitText() const override { return caption_; }
  void SetCaption(std::string_view caption) { Set(caption_, std::string(caption)); }
  TextAlign Alignment() const { return alignment_; }
  void SetAlignment(TextAlign alignment) { Set(alignment_, alignment); }

  bool TakesFocus() const override { return false; }
  void Click() override { Events().OnClick(*this); }
  void DoubleClick() override { Events().OnDoubleClick(*this); }

 private:
  std::string caption_;
  TextAlign alignment_ = TextAlign::kLeft;
};

class Rotulo final : public ObjectFamily {
 public:
  explicit Rotulo(ObjectFrame& frame);

  // The text of the label, and the variable `name.Txt`.
  void SetText(RotuloControl& label, std::string_view text);

  void OnDoubleClick(Control& control) override { OnClick(control); }

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
