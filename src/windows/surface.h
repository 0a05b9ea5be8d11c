// A surface: what a program prints and draws on. Drawing happens here, in one plain raster for every host, so
// that a program reads the same pixels everywhere; a host shows what changed. Where no painter of text is
// loaded, printed text leaves no pixels.
//
// From below: the ground colour, the background picture, and the raster with all that was drawn.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "windows/picture.h"
#include "windows/raster.h"
#include "windows/shapes.h"
#include "windows/text_painter.h"

namespace tessera {

// Blue, green and red from the high byte down, or 0x80000000 plus the number of a system colour.
using Colour = std::int32_t;
inline constexpr Colour kWindowColour = static_cast<Colour>(0x80000005U);
inline constexpr Colour kButtonFaceColour = static_cast<Colour>(0x8000000FU);
inline constexpr Colour kButtonTextColour = static_cast<Colour>(0x80000012U);

// What `Point` answers for a place beyond the surface.
inline constexpr Colour kNoColour = -1;

// The opaque pixel of a colour.
Pixel PixelOfColour(Colour colour);

// Lays a text of that opaque colour over a raster, within which its mask lies.
void LayText(const TextMask& mask, Pixel colour, Raster& onto);

// The upper left part of a picture, somewhere on a surface.
struct PlacedPicture {
  PictureRef picture;
  PixelPoint at;
  Size part;
};
using PlacedPictures = std::vector<PlacedPicture>;

// Whether boxes are filled.
enum class Filling { Solid = 0, Transparent = 1 };

// Sizes and positions in pixels of its client area.
class Surface {
 public:
  // The painter outlives the surface.
  explicit Surface(TextPainter* painter = nullptr) : painter_(painter) {}
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  // The print position.
  double CurrentX = 0;
  double CurrentY = 0;
  // Width of lines and points.
  std::int32_t DrawWidth = 1;
  Colour FillColor = 0;
  Filling FillStyle = Filling::Transparent;

  virtual double ScaleWidth() const = 0;
  virtual double ScaleHeight() const = 0;

  Colour BackColor() const { return backColor_; }
  void SetBackColor(Colour colour) {
    backColor_ = colour;
    ShowGround();
  }

  // The background picture at the upper left corner, in its own size; none is allowed. What is drawn stays.
  const PictureRef& Background() const { return background_; }
  void SetBackground(PictureRef picture) {
    background_ = std::move(picture);
    ShowGround();
  }

  // The pointer over the surface; none is the arrow.
  const PictureRef& MouseIcon() const { return mouseIcon_; }
  void SetMouseIcon(PictureRef picture) {
    mouseIcon_ = std::move(picture);
    ShowMouseIcon();
  }

  // Colour and font of the prints to come; what is printed already stays.
  Colour ForeColor = kButtonTextColour;
  FontFace Font;

  // Prints a text with its upper left corner at the print position.
  void Print(std::string_view text);
  // Erases printed text and drawings; the print position, the ground and the background picture stay.
  void Cls();

  // A filled circle, its radius widened by the pen. Failure 5 for a negative radius.
  void Circle(PixelPoint centre, double radius, Colour colour);
  // An outline in the pen's width; with a solid `FillStyle` the inside is filled with `FillColor`.
  void Box(PixelPoint corner, PixelPoint opposite, Colour colour);
  void Line(PixelPoint from, PixelPoint to, Colour colour);
  // A point in the pen's width.
  void PSet(PixelPoint at, Colour colour);
  // One pixel, whatever the pen.
  void SetPixel(PixelPoint at, Colour colour);
  // A bar of the full colour, with no pen.
  void FillBar(PixelPoint corner, PixelPoint opposite, Colour colour);

  // All that is in sight, opaque.
  Raster InSight() const;
  // The colour in sight, red in the low byte, or `kNoColour`.
  Colour Point(PixelPoint at) const;
  // Fills with `FillColor` the area of the point's colour around it.
  void FloodFill(PixelPoint at);

  // Draws a picture with its upper left corner there; where it is transparent what is below shows through.
  void PaintPicture(const PictureRef& picture, PixelPoint at);
  // Draws pictures one over the other, where `erase` says so in place of all drawings. A person sees them
  // come together.
  void PaintPictures(const PlacedPictures& pictures, bool erase);

 protected:
  virtual void ShowGround() {}
  virtual void ShowMouseIcon() {}
  virtual void ShowErased() {}
  virtual void ShowDrawn(const Spans& /*spans*/, Pixel /*pixel*/) {}
  virtual void ShowPainted(const PlacedPictures& /*pictures*/, bool /*erased*/) {}
  // A text was printed at the print position; the mask is empty without a painter.
  virtual void ShowPrinted(std::string_view /*text*/, const TextMask& /*mask*/) {}

  Size ClientSize() const;
  // The raster, at least as large as the client area.
  Raster& Canvas();
  Raster raster_;

 private:
  std::int32_t Pen() const;
  Pixel PixelInSight(int x, int y) const;
  void Draw(const Spans& spans, Colour colour);

  TextPainter* painter_;
  Colour backColor_ = kButtonFaceColour;
  PictureRef background_;
  PictureRef mouseIcon_;
};

}  // namespace tessera
