// A virtual X server with a person at it, who types and points as the server's own input devices do, and
// asks windows to close as a window manager does.
#pragma once

#include <csignal>
#include <cstdint>
#include <string>
#include <vector>

#include "support/process.h"

namespace tessera {

class VirtualScreen {
 public:
  // What the server does when its last client has gone.
  enum class Behind { Stays, Resets };
  // Fails the test where the server does not start.
  explicit VirtualScreen(Behind behind = Behind::Stays);

  // "DISPLAY=:n" and what else a program of the windows' side needs.
  std::vector<std::string> Environment() const;

  // The window of that title that is not `before`, once it is shown and has the keys; 0 and a failed test
  // where it never has.
  std::uint32_t WindowNamed(const std::string& title, std::uint32_t before = 0) const;

  // What the person does, in the words of xdotool: "key", "F6".
  void Do(std::vector<std::string> words) const;
  // Moves the pointer to a place of a window, in pixels of its inside.
  void PointAt(std::uint32_t window, int x, int y) const;
  // The server goes, with all that is shown on it.
  void Stop() { server_.Signal(SIGKILL); }
  // Asks the window to close.
  void Close(std::uint32_t window) const;

 private:
  ProcessResult Ask(std::vector<std::string> words) const;

  TemporaryFolder folder_;
  RunningProcess server_;
  std::string display_;
};

}  // namespace tessera
