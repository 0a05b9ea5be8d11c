// A text of several lines.
#pragma once

#include <string_view>

namespace tessera {

// Calls `act` with each line, of which there is one at least; CR LF, CR and LF end one.
template <typename Act>
void EachLine(std::string_view text, Act act) {
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n");
    act(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
  }
}

}  // namespace tessera
