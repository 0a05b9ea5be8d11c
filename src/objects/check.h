// `Check`, the check box, and `Opcao`, one of several options of which one is chosen.
#pragma once

#include <string>
#include <string_view>

#include "objects/object_family.h"

namespace tessera {

class CheckControl : public Control {
 public:
  CheckControl(Form& form, ControlEvents& events, int index);

  const std::string& Caption() const { return caption_; }
  std::string PortraitText() const override { return caption_; }
  void SetCaption(std::string_view caption) { Set(caption_, std::string(caption)); }
  bool Value() const { return value_; }
  void SetValue(bool value) { Set(value_, value); }

  // Ticks or unticks it, and tells.
  void Click() override;
  // 1 ticks it, 0 unticks it; nothing where it is so already.
  void EnterValue(double value) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;

 private:
  std::string caption_;
  bool value_ = false;
};

class OpcaoControl final : public CheckControl {
 public:
  using CheckControl::CheckControl;

  void Click() override;
  void EnterValue(double value) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;
};

class Check : public ObjectFamily {
 public:
  explicit Check(ObjectFrame& frame);

  // The control's value, and the variable `name.Valor`.
  virtual void SetValue(CheckControl& check, bool value);

  void OnClick(Control& control) override;

 protected:
  Check(ObjectFrame& frame, std::string_view word);

  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  void TakeCaption(CheckControl& check, const Arguments& arguments) const;
};

class Opcao final : public Check {
 public:
  explicit Opcao(ObjectFrame& frame);

  // Choosing one gives up all others.
  void SetValue(CheckControl& option, bool value) override;

  void OnClick(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;

 private:
  void GiveUpOthers(const CheckControl& option);
};

}  // namespace tessera
