#include "windows/colours.h"

#include <array>

namespace tessera {

namespace {

constexpr std::int32_t Rgb(int red, int green, int blue) {
  return red | green << 8 | blue << 16;
}

constexpr std::int32_t Grey(int level) {
  return Rgb(level, level, level);
}

// By the low byte of the system colour.
constexpr std::array kSystemColours = {
    Grey(200),           // scroll bar
    Grey(0),             // desktop
    Rgb(153, 180, 209),  // active title
    Rgb(191, 205, 219),  // inactive title
    Grey(240),           // menu
    Grey(255),           // window
    Grey(100),           // window frame
    Grey(0),             // menu text
    Grey(0),             // window text
    Grey(0),             // title text
    Grey(180),           // active border
    Rgb(244, 247, 252),  // inactive border
    Grey(171),           // application workspace
    Rgb(0, 120, 215),    // selection
    Grey(255),           // selected text
    Grey(240),           // button face
    Grey(160),           // button shadow
    Grey(109),           // disabled text
    Grey(0),             // button text
    Grey(0),             // inactive title text
    Grey(255),           // button highlight
    Grey(105),           // dark shadow
    Grey(227),           // light edge
    Grey(0),             // hint text
    Rgb(255, 255, 225),  // hint ground
};

}  // namespace

std::int32_t ResolveColour(Colour colour) {
  if (colour >= 0) return colour & 0xFFFFFF;
  const auto number = static_cast<std::size_t>(colour & 0xFF);
  return number < kSystemColours.size() ? kSystemColours[number] : 0;
}

}  // namespace tessera
