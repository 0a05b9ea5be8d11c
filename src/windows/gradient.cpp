#include "windows/gradient.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "windows/colours.h"

namespace tessera {

namespace {

using Channels = std::array<int, 3>;  // red, green, blue

Channels ChannelsOf(Colour colour) {
  const std::int32_t rgb = ResolveColour(colour);
  return {rgb % 256, rgb / 256 % 256, rgb / 256 / 256 % 256};
}

Size SizeOf(const Surface& window) {
  return {static_cast<int>(std::lround(window.ScaleWidth())),
          static_cast<int>(std::lround(window.ScaleHeight()))};
}

Colour Mixed(const Channels& from, const Channels& to, int step, int steps) {
  Colour mixed = 0;
  for (std::size_t i = from.size(); i-- > 0;) {
    const double share = steps == 0 ? 0 : double(step) / steps;
    mixed = mixed * 256 + static_cast<Colour>(std::lround(from[i] + (to[i] - from[i]) * share));
  }
  return mixed;
}

}  // namespace

void Gradiente::Repaint(Surface& window) {
  if (SizeOf(window) != painted_) FormGradiente(window);
}

int Gradiente::ValorMaior() const {
  const Channels from = ChannelsOf(CorInicial);
  const Channels to = ChannelsOf(CorFinal);
  int largest = 0;
  for (std::size_t i = 0; i < from.size(); ++i) largest = std::max(largest, std::abs(to[i] - from[i]));
  return largest;
}

// OPEN: the colours run from the top down, as a window's light does; step 0 is the first colour, the last one
// the second, and each step is a bar of the same height as far as whole pixels allow.
void Gradiente::FormGradiente(Surface& window) {
  painted_ = SizeOf(window);
  const int width = painted_.width;
  const int steps = ValorMaior();
  const Channels from = ChannelsOf(CorInicial);
  const Channels to = ChannelsOf(CorFinal);
  const auto topOf = [steps, height = painted_.height](int step) {
    return static_cast<int>(std::int64_t{height} * step / (steps + 1));
  };
  for (int step = 0; step <= steps; ++step) {
    const int bottom = topOf(step + 1) - 1;
    if (topOf(step) > bottom) continue;
    window.FillBar({0, topOf(step)}, {width - 1, bottom}, Mixed(from, to, step, steps));
  }
}

}  // namespace tessera
