// The lines of a script that tell what a person does with a window itself.
#pragma once

#include <string>
#include <vector>

#include "windows/input.h"

namespace tessera {

class Form;

// Places are pixels of the window's client area.
std::string MoveLine(const Form& form, PointerPlace to);
std::vector<std::string> PressLines(const Form& form, PointerPlace at, MouseButton button);
std::string ReleaseLine(MouseButton button);

// A key that no object takes goes down; one that comes with another is told at once.
std::string KeyDownLine(int keyCode, KeyShift shift);
std::string KeyUpLine(int keyCode);

// The client area has that many pixels now.
std::string ResizeLine(double width, double height);

}  // namespace tessera
