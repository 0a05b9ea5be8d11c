// A page of paper as a list of drawing operations, in the order in which they were drawn. It knows no
// painter: the same page becomes a picture, a sheet of a PDF or the preview's view of it, at any scale.
//
// All lengths are twips (1,440 an inch) from the paper's upper left corner.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "windows/font_face.h"
#include "windows/picture.h"
#include "windows/surface.h"

namespace tessera::reports {

// A4 upright.
inline constexpr double kPaperWidth = 11906;
inline constexpr double kPaperHeight = 16838;
// A page picture, of 15 twips a pixel.
inline constexpr Size kPagePixels = {794, 1123};
inline constexpr double kTwipsOfPixel = 15;
// How thick a line is, around its middle; its ends stand out by half of it, so that lines meet at corners.
inline constexpr double kLineTwips = 15;

struct PagePlace {
  double x = 0;
  double y = 0;
};

class Page {
 public:
  enum class Kind : std::uint8_t { Text, Line, Box, Picture };

  // Kept small, for a long report keeps all its pages. What the fields mean is told by the drawing routines.
  struct Operation {
    Kind kind;
    std::uint16_t length = 0;  // of the text, in bytes
    float x1, y1;
    float x2 = 0, y2 = 0;
    std::int32_t colour = 0;  // red in the low byte
    std::uint32_t text = 0;   // its place in the page's text
    std::uint32_t item = 0;   // face or picture
  };

  // One line of program text, its upper left corner at the place.
  void AddText(PagePlace at, std::string_view text, const FontFace& face, Colour colour);
  void AddLine(PagePlace from, PagePlace to, Colour colour);
  // A filled box with no edge.
  void AddBox(PagePlace corner, PagePlace opposite, Colour colour);
  // A picture in its own size.
  void AddPicture(PagePlace corner, const PictureRef& picture);

  const std::vector<Operation>& Operations() const { return operations_; }
  std::string_view TextOf(const Operation& operation) const {
    return std::string_view(texts_).substr(operation.text, operation.length);
  }
  const FontFace& FaceOf(const Operation& operation) const { return faces_[operation.item]; }
  const PictureRef& PictureOf(const Operation& operation) const { return pictures_[operation.item]; }

  // Gives back the room that was kept for more.
  void Close();

 private:
  Operation& Add(Kind kind, PagePlace from, PagePlace to, Colour colour);

  std::vector<Operation> operations_;
  std::string texts_;
  std::vector<FontFace> faces_;
  std::vector<PictureRef> pictures_;
};

}  // namespace tessera::reports
