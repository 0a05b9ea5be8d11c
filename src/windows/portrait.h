// A picture of what stands on a window, for an eye that has no screen: surfaces and animations as they are,
// and of other objects the place, the colours and the text.
#pragma once

#include "windows/raster.h"

namespace tessera {

class Form;
class TextPainter;

// Lays the objects of the window over its ground, from the back to the front. Without a painter frames stay
// without text.
void PaintObjects(const Form& form, TextPainter* painter, Raster& onto);

}  // namespace tessera
