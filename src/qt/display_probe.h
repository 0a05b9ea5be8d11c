// Whether there is a display to show windows on, asked without the window toolkit's own start, which ends the
// process where there is none.
#pragma once

#include <string>

namespace tessera {

class DisplayProbe {
 public:
  // Chooses the platform of the window toolkit, where the environment has not. The connection to an X server
  // stays open: one without other clients would reset itself at its end, and refuse the toolkit meanwhile.
  DisplayProbe();
  ~DisplayProbe();
  DisplayProbe(const DisplayProbe&) = delete;
  DisplayProbe& operator=(const DisplayProbe&) = delete;

  // Why there is no display, in Portuguese; empty where there is one.
  const std::string& problem() const { return problem_; }

 private:
  bool XServerAnswers();

  std::string problem_;
  void* library_ = nullptr;  // the client library that the X11 platform itself uses
  void* connection_ = nullptr;
};

// A process that sets this variable for the next one has met a display that refused it.
inline constexpr const char* kNoDisplayVariable = "TESSERA_SEM_TELA";

}  // namespace tessera
