// Where a text stands in its line; the numbers are those that a program gives.
#pragma once

namespace tessera {

enum class TextAlign { kLeft = 0, kRight = 1, kCentre = 2 };

}  // namespace tessera
