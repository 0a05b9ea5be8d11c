// `Transicao`: a cross-fade between two pictures on the current window.
#pragma once

#include "commands/command_table.h"
#include "windows/picture.h"
#include "windows/surface.h"

namespace tessera {

struct WindowModel;

// The second picture over the first, its upper left corner at that of the first, whose size stays; at an
// opacity from 0, the first alone, to 255, the second where it reaches.
PictureRef AlphaBlend(const Picture& first, const Picture& second, std::int32_t opacity);

class Transicao {
 public:
  // They outlive it.
  Transicao(CommandTable& table, WindowModel& windows);

 private:
  Value Do(const WordCall& call);
  void Load(Run& run, const std::string& path, PictureRef& into, std::string_view which);
  void Draw(std::int32_t opacity);

  WindowModel& windows_;
  PixelPoint at_{0, 0};
  PictureRef PicAux_;
  PictureRef PicAlphaBlend_;
};

}  // namespace tessera
