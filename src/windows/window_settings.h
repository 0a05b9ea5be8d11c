// Size, place and grid of a window, as the keywords of `Janela` and the suffixes of `NovaJanela` set them.
#pragma once

#include "commands/arguments.h"
#include "values/run.h"
#include "windows/placement.h"

namespace tessera {

class Form;
struct WindowModel;

// `AlturaTela` and `LarguraTela`: the screen in lines and columns of the grid.
void WriteScreenVariables(Run& run, const WindowModel& windows, ScreenSize screen);
void WriteGridVariables(Run& run, const WindowModel& windows, ScreenSize screen);

// "RESOLUCAO": divides the window's client area into the lines and columns of two places, which become the
// grid of all windows. Failure 6 for pixels beyond 16 bits, 11 for less than half a pixel.
void SetResolution(Run& run, WindowModel& windows, ScreenSize screen, const Form& form,
                   const ArgumentView& values);

// "TAMANHO": lines and columns, or "MAXIMO". A value left out leaves its side as it is.
void SetSize(Form& form, ScreenSize screen, const ArgumentView& values);

enum class PositionNumbers {
  Literal,  // only a number that stands there; a name is failure 13
  Computed,
};

// "POSICAO": line and column, or "CENTRO". A value left out leaves its side as it is.
void SetPosition(Form& form, ScreenSize screen, const ArgumentView& values, PositionNumbers numbers);

}  // namespace tessera
