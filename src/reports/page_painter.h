// What paints pages: the part of the system that stands on a library of fonts and needs no display. Both
// hosts load the same one (paper_part.h), so that widths, breaks and pixels are the same on both.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "reports/page.h"
#include "windows/raster.h"
#include "windows/text_painter.h"

namespace tessera::reports {

// The measures of a face in twips, unhinted: a text is as wide as its characters' advances together.
struct FaceMeasures {
  std::array<double, 256> advances{};  // by the character's byte; 0 for what is not printed
  double ascent = 0;
  double descent = 0;

  double Height() const { return ascent + descent; }
};

class PdfDocument {
 public:
  virtual ~PdfDocument() = default;
  virtual void Add(const Page& page) = 0;
  // The bytes of the file; nothing is added any more.
  virtual std::string End() = 0;
};

// The queues of the machine's print system. Names and titles are UTF-8.
class PrintQueues {
 public:
  virtual ~PrintQueues() = default;
  virtual std::vector<std::string> Names() = 0;
  // The system's default; empty where there is none.
  virtual std::string Default() = 0;
  // Sends a PDF to a queue. False where the queue or the print system refuses it.
  virtual bool Send(const std::string& queue, const std::string& title, std::string_view pdf) = 0;
};

class PagePainter {
 public:
  virtual ~PagePainter() = default;
  virtual FaceMeasures Measure(const FontFace& face) = 0;
  // Fills the raster with the page, white where nothing is drawn. `pixelsOfTwip` is the scale; `left` and
  // `top` are the place, in pixels of the whole page, of the raster's corner.
  virtual void Paint(const Page& page, double pixelsOfTwip, int left, int top, Raster& onto) = 0;
  // `title` is program text.
  virtual std::unique_ptr<PdfDocument> NewPdf(std::string_view title) = 0;
  // Texts on surfaces, by the same library.
  virtual TextPainter& Texts() = 0;
  virtual PrintQueues& Queues() = 0;
};

// The entry point of the part: its one painter, which lives to the end of the process.
inline constexpr const char* kPainterEntry = "TesseraPagePainter";
using PainterEntry = PagePainter* (*)();

}  // namespace tessera::reports
