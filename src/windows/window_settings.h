// Size, place and grid of a window, as the keywords of `Janela` and the suffixes of `NovaJanela` set them,
// and the list in which both find their words and values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "values/run.h"
#include "windows/placement.h"

namespace tessera {

class Form;
struct WindowModel;

// The arguments of a window command, the equals sign being one of its own; places count from 0.
class Settings {
 public:
  static constexpr std::size_t kPlaces = 51;

  // Failure 9 for more arguments than places.
  Settings(Run& run, std::string_view arguments);

  // The argument as the program wrote it; failure 9 beyond the places.
  const std::string& Raw(std::size_t place) const;
  Value Number(std::size_t place) const;
  // The value in upper case, for comparisons with words.
  std::string Word(std::size_t place) const;

 private:
  Run& run_;
  std::vector<std::string> parts_;
};

// `AlturaTela` and `LarguraTela`: the screen in lines and columns of the grid.
void WriteScreenVariables(Run& run, const WindowModel& windows, ScreenSize screen);
void WriteGridVariables(Run& run, const WindowModel& windows, ScreenSize screen);

// "RESOLUCAO": divides the window's client area into the lines and columns of two places, which become the
// grid of all windows. Failure 6 for pixels beyond 16 bits, 11 for less than half a pixel.
void SetResolution(Run& run, WindowModel& windows, ScreenSize screen, const Form& form,
                   const Settings& settings, std::size_t place);

// "TAMANHO": lines and columns, or "MAXIMO". A value left out leaves its side as it is.
void SetSize(Form& form, ScreenSize screen, const Settings& settings, std::size_t place);

enum class PositionNumbers {
  Literal,  // only a number that stands there; a name is failure 13
  Computed,
};

// "POSICAO": line and column, or "CENTRO". A value left out leaves its side as it is.
void SetPosition(Form& form, ScreenSize screen, const Settings& settings, std::size_t place,
                 PositionNumbers numbers);

}  // namespace tessera
