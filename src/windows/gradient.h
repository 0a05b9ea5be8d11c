// The control `Gradiente` of a window: its two colours and the painting.
#pragma once

#include "windows/surface.h"

namespace tessera {

struct Gradiente {
  Colour CorInicial = 0;
  Colour CorFinal = 0;

  // Paints the whole surface from the upper edge in the first colour to the lower edge in the second.
  void FormGradiente(Surface& window);
  // The same after a resize, unless the surface has the size in which it was painted: what was printed on the
  // gradient since stays.
  void Repaint(Surface& window);

 private:
  int ValorMaior() const;

  Size painted_;
};

}  // namespace tessera
