// What shows pages on a control: on a machine with windows a part of its own, loaded when a program first
// shows one.
#pragma once

#include <string>

namespace tessera::media {

struct Address {
  std::string written;  // as the program gave it
  // UTF-8: the full address, or, where `isFile`, the system's path of a file.
  std::string target;
  bool isFile = false;
};

class Pages {
 public:
  virtual ~Pages() = default;
  virtual void Navigate(const Address& address) = 0;
  virtual void GoBack() = 0;
  virtual void GoForward() = 0;
  virtual void Stop() = 0;
  virtual void Refresh() = 0;
};

// The part's entry point; its type is told by the part, for only the host with windows calls it.
inline constexpr const char* kPageViewEntry = "TesseraPageView";

}  // namespace tessera::media
