// The control `Gradiente` of a window: its two colours and the painting.
#pragma once

#include "windows/surface.h"

namespace tessera {

struct Gradiente {
  Colour CorInicial = 0;
  Colour CorFinal = 0;

  // Paints the whole surface from the upper edge in the first colour to the lower edge in the second.
  void FormGradiente(Surface& window) const;

 private:
  int ValorMaior() const;
};

}  // namespace tessera
