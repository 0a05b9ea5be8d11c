// Colours of the system by their numbers, the same on every host and under every desktop theme, so that a
// program's own colours always stand on the ground that it expects.
#pragma once

#include <cstdint>

#include "windows/surface.h"

namespace tessera {

// The red, green and blue of a colour: red in the low byte, as programs read it. A system colour that the
// table lacks is black.
std::int32_t ResolveColour(Colour colour);

}  // namespace tessera
