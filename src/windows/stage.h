// Where the windows of a scripted program stand. An event script leads them, not a person: the one who plays
// the script is their `StageLead`, and a stage keeps in memory, or shows on a screen, what the script and the
// program do with them.
#pragma once

#include <memory>
#include <string_view>

#include "windows/placement.h"
#include "windows/raster.h"

namespace tessera {

class Form;
class FormEvents;

class StageLead {
 public:
  virtual ~StageLead() = default;
  // A text was printed on a window.
  virtual void OnPrinted(std::string_view text) = 0;
  // Plays the script on until the modal window is hidden.
  virtual void ServeModal(Form& form) = 0;
};

class Stage {
 public:
  virtual ~Stage() = default;
  // A window, hidden, in that place, known to tests and assistive tools by `name`. `events` and `lead`
  // outlive it. What the screen or a person does with it does not reach the program.
  virtual std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place, FormEvents& events,
                                        StageLead& lead) = 0;
  // The client area of a window that this stage made has that many pixels now, as if a person had drawn at
  // its frame.
  virtual void ResizeByPerson(Form& form, double width, double height) = 0;
  // What stands on a window that this stage made.
  virtual Raster Portrait(Form& form) = 0;
  // Shows what has changed. It lets no event into the program.
  virtual void ShowChanges() {}
};

}  // namespace tessera
