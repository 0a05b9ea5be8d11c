// What happens to one window, told to the logic.
#pragma once

#include "windows/input.h"
#include "windows/placement.h"

namespace tessera {

// A call may run the program (and end the process, by `ProcessEnd`); a host calls it from its dispatch alone.
// Pointer positions in pixels of the client area. What a kind of window doesn't feel does nothing.
class FormEvents {
 public:
  virtual ~FormEvents() = default;
  // A person or the screen brought the window to the front.
  virtual void OnActivate() {}
  // The client area has another size, whoever changed it.
  virtual void OnResize() {}
  // A person asks the window to close.
  virtual void OnClose() = 0;
  // Keys while no object has the focus, or before the object that has it, where the window sees them first.
  virtual void OnKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}
  // A character is about to be typed; true where the window takes it away from its objects.
  virtual bool OnKeyPress(char /*character*/) { return false; }
  // Keys of the hidden key sink, which has the focus while no object has it.
  virtual void OnSinkKeyDown(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnSinkKeyUp(int /*keyCode*/, KeyShift /*shift*/) {}
  virtual void OnMouseDown(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnMouseMove(double /*x*/, double /*y*/) {}
  virtual void OnMouseUp(MouseButton /*button*/, double /*x*/, double /*y*/) {}
  virtual void OnClick() {}
  virtual void OnDoubleClick() {}

  virtual Grid PlacementGrid() const = 0;
};

}  // namespace tessera
