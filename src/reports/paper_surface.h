// A surface of paper: what a report's page and the printer have in common. A program's text stands at the
// print position and ends its line there; all lengths are twips.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "reports/page.h"
#include "reports/page_painter.h"

namespace tessera::reports {

inline const FontFace kPaperFont = {.name = "MS Sans Serif", .size = 8};

// The measures of all faces in use.
class TextMeasures {
 public:
  explicit TextMeasures(PagePainter& painter) : painter_(painter) {}

  const FaceMeasures& Of(const FontFace& face);

 private:
  struct Hash {
    std::size_t operator()(const FontFace& face) const;
  };

  PagePainter& painter_;
  std::unordered_map<FontFace, FaceMeasures, Hash> faces_;
  // FAST: most texts have the face of the one before.
  const FontFace* lastFace_ = nullptr;
  const FaceMeasures* lastMeasures_ = nullptr;
};

class PaperSurface {
 public:
  // The measures outlive it.
  explicit PaperSurface(TextMeasures& measures) : measures_(measures) {}
  PaperSurface(const PaperSurface&) = delete;
  PaperSurface& operator=(const PaperSurface&) = delete;
  virtual ~PaperSurface() = default;

  FontFace Font = kPaperFont;
  double CurrentX = 0;
  double CurrentY = 0;

  // Of several lines the widest, and all together.
  double TextWidth(std::string_view text);
  double TextHeight(std::string_view text);
  // The text up to the character with which it is wider than `width`.
  std::string MidX(std::string_view text, double width);

  // Prints at the print position, which goes to the start of the line behind.
  void Print(std::string_view text, Colour colour = 0);
  void Line(PagePlace from, PagePlace to, Colour colour);
  void FillBox(PagePlace corner, PagePlace opposite, Colour colour);
  void PaintPicture(const PictureRef& picture, PagePlace corner);

 protected:
  // The page to draw on; a printer that has none begins its document.
  virtual Page& DrawnPage() = 0;

 private:
  TextMeasures& measures_;
};

}  // namespace tessera::reports
