#include "windows/surface.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "windows/colours.h"
#include "windows/flood_fill.h"

namespace tessera {

namespace {

constexpr std::int32_t kWidestPen = 32767;
constexpr double kLargestSide = 32767;
constexpr Pixel kOpaque = 0xFF000000;

// Programs count red from the low byte up, pixels from the high one down.
constexpr Pixel SwapEnds(Pixel colour) {
  return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

int Side(double pixels) {
  return static_cast<int>(std::clamp(std::round(pixels), 0.0, kLargestSide));
}

}  // namespace

Pixel PixelOfColour(Colour colour) {
  return kOpaque | SwapEnds(static_cast<Pixel>(ResolveColour(colour)));
}

void LayText(const TextMask& mask, Pixel colour, Raster& onto) {
  auto covered = mask.coverage.begin();
  for (int y = 0; y < mask.size.height; ++y) {
    Pixel* row = onto.Row(mask.corner.y + y) + mask.corner.x;
    for (int x = 0; x < mask.size.width; ++x, ++covered) {
      if (*covered != 0) row[x] = Blend(PixelOf(colour & ~kOpaque, *covered), row[x]);
    }
  }
}

Size Surface::ClientSize() const {
  return {Side(ScaleWidth()), Side(ScaleHeight())};
}

std::int32_t Surface::Pen() const {
  return std::clamp(DrawWidth, 1, kWidestPen);
}

Raster& Surface::Canvas() {
  raster_.Grow(ClientSize());
  return raster_;
}

void Surface::Print(std::string_view text) {
  TextMask mask;
  if (painter_ != nullptr && !text.empty()) {
    Raster& canvas = Canvas();
    mask = painter_->Mask(text, Font, CurrentX, CurrentY, canvas.size());
    LayText(mask, PixelOfColour(ForeColor), canvas);
  }
  ShowPrinted(text, mask);
}

void Surface::Cls() {
  raster_.Clear();
  ShowErased();
}

void Surface::Draw(const Spans& spans, Colour colour) {
  if (spans.empty()) return;
  Raster& canvas = Canvas();
  const Pixel pixel = PixelOfColour(colour);
  for (const Span& span : spans) canvas.Fill(span, pixel);
  ShowDrawn(spans, pixel);
}

void Surface::Circle(PixelPoint centre, double radius, Colour colour) {
  if (radius < 0) FailArgument();
  Draw(DiscSpans(ClientSize(), centre, radius + (Pen() - 1) / 2.0), colour);
}

void Surface::Box(PixelPoint corner, PixelPoint opposite, Colour colour) {
  if (FillStyle == Filling::Solid) Draw(BoxSpans(ClientSize(), corner, opposite), FillColor);
  Draw(FrameSpans(ClientSize(), corner, opposite, Pen()), colour);
}

void Surface::Line(PixelPoint from, PixelPoint to, Colour colour) {
  Draw(LineSpans(ClientSize(), from, to, Pen()), colour);
}

void Surface::PSet(PixelPoint at, Colour colour) {
  Draw(PenSpans(ClientSize(), at, Pen()), colour);
}

void Surface::SetPixel(PixelPoint at, Colour colour) {
  Draw(PenSpans(ClientSize(), at, 1), colour);
}

void Surface::FillBar(PixelPoint corner, PixelPoint opposite, Colour colour) {
  Draw(BoxSpans(ClientSize(), corner, opposite), colour);
}

Pixel Surface::PixelInSight(int x, int y) const {
  Pixel pixel = raster_.size().Holds(x, y) ? raster_.At(x, y) : 0;
  if (pixel >= kOpaque) return pixel;
  if (background_ && background_->size().Holds(x, y)) pixel = Blend(pixel, background_->raster.At(x, y));
  return pixel >= kOpaque ? pixel : Blend(pixel, PixelOfColour(backColor_));
}

Raster Surface::InSight() const {
  const Size size = ClientSize();
  Raster seen(size);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) seen.Set(x, y, PixelInSight(x, y));
  }
  return seen;
}

Colour Surface::Point(PixelPoint at) const {
  if (!ClientSize().Holds(at.x, at.y)) return kNoColour;
  return static_cast<Colour>(SwapEnds(PixelInSight(at.x, at.y) & ~kOpaque));
}

void Surface::FloodFill(PixelPoint at) {
  if (!ClientSize().Holds(at.x, at.y)) return;
  const Pixel wanted = PixelInSight(at.x, at.y);
  Draw(FloodSpans(ClientSize(), at.x, at.y, [&](int x, int y) { return PixelInSight(x, y) == wanted; }),
       FillColor);
}

void Surface::PaintPicture(const PictureRef& picture, PixelPoint at) {
  PaintPictures({{.picture = picture, .at = at, .part = picture->size()}}, false);
}

void Surface::PaintPictures(const PlacedPictures& pictures, bool erase) {
  Raster& canvas = Canvas();
  if (erase) canvas.Clear();
  for (const PlacedPicture& placed : pictures)
    canvas.Lay(placed.picture->raster, placed.at.x, placed.at.y, placed.part, ClientSize());
  ShowPainted(pictures, erase);
}

}  // namespace tessera
