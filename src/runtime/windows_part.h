// What the runtime asks of the part with the windows, which stands inside the runtime's own file.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "runtime/program_start.h"

namespace tessera {

// The windows of this process, from their opening on. One of its acts is the whole life of the process.
class Windows {
 public:
  virtual ~Windows() = default;

  // The program's life; the exit status of the process.
  virtual int Run(const ProgramStart& start) = 0;
  // The same, led by an event script on the standard input.
  virtual int RunScripted(const ProgramStart& start) = 0;
  // The same, led by a person, whose acts become a script.
  virtual int RunForAuthor(const ProgramStart& start) = 0;

  // Boxes of the runtime itself (UTF-8): that something is wrong, and what the runtime is.
  virtual void TellTrouble(const std::string& message) = 0;
  virtual void TellNotice(const std::string& notice) = 0;
};

struct WindowsCall {
  // Starts this process anew, from its own file and with its own arguments. It does not return, unless the
  // system has no room for it. A display that is lost between the asking and the start is met anew by a
  // process that knows of it.
  std::function<void()> restart;
  bool showsPages = false;      // of the net: what they need costs some of the start
  bool mayStandUnseen = false;  // where there is no display, the windows stand on one that nobody sees
};

// The windows, or in Portuguese why there is no display for them.
struct FoundWindows {
  std::unique_ptr<Windows> windows = {};
  std::string problem = {};
};

// The entry point of the part, and its name.
using WindowsEntry = void (*)(const WindowsCall& call, FoundWindows& found);
inline constexpr const char* kWindowsEntry = "TesseraWindows";

}  // namespace tessera
