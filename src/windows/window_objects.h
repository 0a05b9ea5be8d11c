// The objects of the program as the windows know them: what opening and closing a window does to the object
// tables, and how a person finds an object.
#pragma once

#include <string_view>

namespace tessera {

class Form;
class PersonObject;
class ProgramWindow;

class WindowObjects {
 public:
  virtual ~WindowObjects() = default;
  // Empties all tables and counters: the program starts.
  virtual void Reset() = 0;
  // A window is made, or made anew: the hidden elements that stand on it from the start.
  virtual void LoadStanding(Form& form) = 0;
  // The window closes: its objects leave the tables.
  virtual void ClearWindow(const Form& window) = 0;
  // The main window closes.
  virtual void ClearMainWindow() = 0;
  // The lowest row of that name on the window, else on any; nothing where there is none.
  virtual PersonObject* Find(std::string_view name, const ProgramWindow& window) = 0;
  // Texts that were typed reach the companion variables.
  virtual void CopyTexts() = 0;
  // The program lets events through, or a timer of its own has run: what it has written may have to be
  // copied.
  virtual void WakeCopying() = 0;
};

}  // namespace tessera
