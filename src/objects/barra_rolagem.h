// `BarraRolagem`, the scroll bar: the controls `BarraHorizontal` and `BarraVertical`.
#pragma once

#include <cstdint>

#include "controls/scroll_bar.h"
#include "objects/object_family.h"

namespace tessera {

enum class BarDirection { Vertical, Horizontal };

class BarraControl final : public Control {
 public:
  BarraControl(Form& form, ControlEvents& events, int index, BarDirection direction);

  BarDirection Direction() const { return direction_; }
  const ScrollBar& State() const { return bar_; }
  void SetMax(std::int32_t max);
  void SetValue(std::int32_t value);
  void SetSmallChange(std::int32_t step) { bar_.SetSmallChange(step); }
  void SetLargeChange(std::int32_t step) { bar_.SetLargeChange(step); }

  // Pixels from the bar's first end; the ticks are those of its timer.
  void PointerDown(int position);
  void PointerMove(int position);
  void PointerUp();
  void Tick();

  void EnterValue(double value) override;
  void PressArrow(bool up) override;
  void OnKeyDown(int keyCode, KeyShift shift) override;

 protected:
  void EnabledChanged() override { bar_.SetEnabled(Enabled()); }
  void Resized() override;

 private:
  BarDirection direction_;
  ScrollBar bar_;
};

class BarraRolagem final : public ObjectFamily {
 public:
  explicit BarraRolagem(ObjectFrame& frame);

  void OnChange(Control& control) override;

 protected:
  std::string ArrayFor(const Arguments& arguments) override;
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
};

}  // namespace tessera
