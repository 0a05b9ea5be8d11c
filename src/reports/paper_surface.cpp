#include "reports/paper_surface.h"

#include <algorithm>
#include <functional>

#include "text/lines.h"

namespace tessera::reports {

namespace {

double WidthOf(const FaceMeasures& face, std::string_view line) {
  double width = 0;
  for (const char character : line) width += face.advances[static_cast<unsigned char>(character)];
  return width;
}

}  // namespace

std::size_t TextMeasures::Hash::operator()(const FontFace& face) const {
  const std::size_t style = std::size_t{face.bold} * 2 + std::size_t{face.italic};
  return std::hash<std::string>()(face.name) ^ std::hash<double>()(face.size) * 31 ^ style;
}

const FaceMeasures& TextMeasures::Of(const FontFace& face) {
  if (lastFace_ != nullptr && *lastFace_ == face) return *lastMeasures_;
  auto found = faces_.find(face);
  if (found == faces_.end()) found = faces_.emplace(face, painter_.Measure(face)).first;
  lastFace_ = &found->first;
  lastMeasures_ = &found->second;
  return found->second;
}

double PaperSurface::TextWidth(std::string_view text) {
  const FaceMeasures& face = measures_.Of(Font);
  double width = 0;
  EachLine(text, [&](std::string_view line) { width = std::max(width, WidthOf(face, line)); });
  return width;
}

double PaperSurface::TextHeight(std::string_view text) {
  const double line = measures_.Of(Font).Height();
  double height = 0;
  EachLine(text, [&](std::string_view) { height += line; });
  return height;
}

// KEPT: the character that passes the width stays
// (XRelatorioTest.ACutTextKeepsTheCharacterThatPassesTheWidth). FAST: one pass, adding up the advances that
// `TextWidth` of each longer text would add up anew.
std::string PaperSurface::MidX(std::string_view text, double width) {
  const FaceMeasures& face = measures_.Of(Font);
  double line = 0;
  double widest = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool ends = text[i] == '\r' || text[i] == '\n';
    line = ends ? 0 : line + face.advances[static_cast<unsigned char>(text[i])];
    widest = std::max(widest, line);
    if (widest > width) return std::string(text.substr(0, i + 1));
  }
  return std::string(text);
}

// OPEN: the further lines of one text begin below its first one, as on a window.
void PaperSurface::Print(std::string_view text, Colour colour) {
  const double line = measures_.Of(Font).Height();
  Page& page = DrawnPage();
  EachLine(text, [&](std::string_view printed) {
    if (!printed.empty()) page.AddText({CurrentX, CurrentY}, printed, Font, colour);
    CurrentY += line;
  });
  CurrentX = 0;
}

void PaperSurface::Line(PagePlace from, PagePlace to, Colour colour) {
  DrawnPage().AddLine(from, to, colour);
}

void PaperSurface::FillBox(PagePlace corner, PagePlace opposite, Colour colour) {
  DrawnPage().AddBox(corner, opposite, colour);
}

void PaperSurface::PaintPicture(const PictureRef& picture, PagePlace corner) {
  DrawnPage().AddPicture(corner, picture);
}

}  // namespace tessera::reports
