// The display: the part of a host that makes windows and lets them live. The logic of `windows/` owns this
// interface and the ones that it is made of, each host implements them, and no host decides anything that a
// program could notice:
//
//   form.h, surface.h, control.h   a window, what is drawn on it, and the objects that lie there
//   form_events.h                  what happens to a window
//   screen.h                       the screen and the desktop around the windows
//   window_directory.h             where a person's acts go
#pragma once

#include <memory>
#include <string_view>

#include "windows/screen.h"

namespace tessera {

class Form;
class FormEvents;
class WindowDirectory;

class Display : public Screen, public Desktop {
 public:
  // The main window, hidden, in that place. `events` and `windows` outlive it.
  virtual std::unique_ptr<Form> NewMainForm(const Placement& place, FormEvents& events,
                                            const WindowDirectory& windows) = 0;
  // A further window, hidden; tests and assistive tools find it by `name`.
  virtual std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place,
                                        FormEvents& events) = 0;

  // A failure abandoned the run; "Editor: n Linha: m" and the failure's description.
  virtual void TellAbandonedRun(std::string_view position, std::string_view description) = 0;

  // Delivers events when the program's text has ended. It is left by `ProcessEnd` alone.
  virtual void ServeEvents() = 0;
};

}  // namespace tessera
