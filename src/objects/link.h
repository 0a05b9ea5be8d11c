// `Link`, a text that opens an address: the control `TxtLink` on the main window.
#pragma once

#include <string>
#include <string_view>

#include "objects/object_family.h"
#include "windows/screen.h"

namespace tessera {

class LinkControl final : public Control {
 public:
  LinkControl(Form& form, ControlEvents& events, int index);

  const std::string& Text() const { return text_; }
  std::string PortraitText() const override { return text_; }
  void SetText(std::string_view text) { Set(text_, std::string(text)); }
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string_view address) { tag_ = address; }
  bool FontUnderline() const { return fontUnderline_; }
  void SetFontUnderline(bool underline) { Set(fontUnderline_, underline); }

  // The focus never stops at a link.
  bool TakesFocus() const override { return false; }
  void Click() override { Events().OnClick(*this); }

 private:
  std::string text_;
  std::string tag_;  // the address
  bool fontUnderline_ = true;
};

class Link final : public ObjectFamily {
 public:
  Link(ObjectFrame& frame, Desktop& desktop);

  void OnClick(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;

 private:
  Desktop& desktop_;
};

}  // namespace tessera
