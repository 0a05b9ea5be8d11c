// Fonts of programs as the window system's.
#pragma once

#include <QFont>

#include "windows/surface.h"

namespace tessera {

// Names that programs use for fonts which this system has under another name, or not at all.
void SubstituteFontNames();

QFont ToQFont(const FontFace& face);

}  // namespace tessera
