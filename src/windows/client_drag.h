// `AutoDrag`: a window that moves when it is dragged by its client area, for a host whose window system does
// not move it by itself.
#pragma once

#include <optional>

#include "windows/display.h"

namespace tessera {

class ClientDrag {
 public:
  // Pointer positions in pixels of the client area. Each is true where the drag takes the event, so that the
  // program feels nothing of it.
  bool Press(const Form& form, MouseButton button, double x, double y);
  bool Move(Form& form, double x, double y) const;
  bool Release(MouseButton button);

 private:
  std::optional<ScreenPoint> heldAt_;
};

}  // namespace tessera
