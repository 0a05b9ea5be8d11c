#include "windows/client_drag.h"

#include <utility>

namespace tessera {

bool ClientDrag::Press(const Form& form, MouseButton button, double x, double y) {
  if (button != MouseButton::Left || !form.Style().AutoDrag) return false;
  heldAt_ = {.x = x, .y = y};
  return true;
}

bool ClientDrag::Move(Form& form, double x, double y) const {
  if (!heldAt_) return false;
  Placement to = form.Place();
  to.Left += TwipsOfPixels(x - heldAt_->x);
  to.Top += TwipsOfPixels(y - heldAt_->y);
  form.Move(to);
  return true;
}

bool ClientDrag::Release(MouseButton button) {
  return button == MouseButton::Left && std::exchange(heldAt_, std::nullopt).has_value();
}

}  // namespace tessera
