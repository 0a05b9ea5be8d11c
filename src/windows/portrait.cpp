#include "windows/portrait.h"

#include <algorithm>
#include <cmath>

#include "windows/form.h"

namespace tessera {

namespace {

constexpr Pixel kFrame = 0xFF8A9096;
// Pixels between frame and text.
constexpr double kTextLeft = 4;
constexpr double kTextTop = 3;
constexpr double kLargestSide = 4096;  // of what is looked at as a whole

int Side(double pixels) {
  return static_cast<int>(std::clamp(std::round(pixels), 0.0, kLargestSide));
}

class Portrait {
 public:
  Portrait(const Form& form, TextPainter* painter) : order_(form.Controls().InZOrder()), painter_(painter) {}

  // What lies in `parent`, or, for none, on the window itself.
  void PaintWithin(const Control* parent, Raster& onto) const {
    for (const Control* control : order_) {
      if (control->Parent() == parent && control->Visible()) Paint(*control, onto);
    }
  }

 private:
  void Paint(const Control& control, Raster& onto) const {
    const ControlPlace& place = control.Place();
    Raster face(Size{Side(place.Width), Side(place.Height)});
    if (face.IsEmpty()) return;
    if (!control.DrawOn(face)) PaintFrame(control, face);
    PaintWithin(&control, face);
    onto.Lay(face, std::lround(place.Left), std::lround(place.Top));
  }

  void PaintFrame(const Control& control, Raster& face) const {
    const Size size = face.size();
    const Pixel ground = PixelOfColour(control.BackColor());
    for (int y = 0; y < size.height; ++y) {
      const bool isEdge = y == 0 || y == size.height - 1;
      face.Fill({.y = y, .left = 0, .right = size.width - 1}, isEdge ? kFrame : ground);
      face.Set(0, y, kFrame);
      face.Set(size.width - 1, y, kFrame);
    }
    const std::string text = control.PortraitText();
    if (painter_ == nullptr || text.empty()) return;
    LayText(painter_->Mask(text, control.Font(), kTextLeft, kTextTop, size),
            PixelOfColour(control.ForeColor()), face);
  }

  const std::vector<Control*> order_;
  TextPainter* painter_;
};

}  // namespace

void PaintObjects(const Form& form, TextPainter* painter, Raster& onto) {
  Portrait(form, painter).PaintWithin(nullptr, onto);
}

}  // namespace tessera
