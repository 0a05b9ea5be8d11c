// `Moldura`, a frame around other objects: the control `SpecialFrame` on the main window.
#pragma once

#include <string>
#include <string_view>

#include "objects/object_family.h"

namespace tessera {

class MolduraControl final : public Control {
 public:
  MolduraControl(Form& form, ControlEvents& events, int index);

  const std::string& Caption() const { return caption_; }
  std::string PortraitText() const override { return caption_; }
  void SetCaption(std::string_view caption) { Set(caption_, std::string(caption)); }

  bool TakesFocus() const override { return false; }
  bool LiesBehind() const override { return true; }

 private:
  std::string caption_;
};

class Moldura final : public ObjectFamily {
 public:
  explicit Moldura(ObjectFrame& frame);

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
