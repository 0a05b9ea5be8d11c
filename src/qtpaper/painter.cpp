// The entry of the part, and the painter that it gives.
#include "qtpaper/application.h"
#include "qtpaper/faces.h"
#include "qtpaper/page_drawing.h"
#include "qtpaper/pdf_document.h"
#include "qtpaper/print_queues.h"
#include "qttext/fonts.h"
#include "qttext/qt_text_painter.h"
#include "reports/page_painter.h"

namespace tessera::qtpaper {

namespace {

class Painter final : public reports::PagePainter {
 public:
  reports::FaceMeasures Measure(const FontFace& face) override { return faces_.Of(face).measures; }

  void Paint(const reports::Page& page, double pixelsOfTwip, int left, int top, Raster& onto) override {
    drawing_.OnPixels(page, pixelsOfTwip, left, top, onto);
  }

  std::unique_ptr<reports::PdfDocument> NewPdf(std::string_view title) override {
    return NewPdfDocument(faces_, title);
  }

  TextPainter& Texts() override { return texts_; }
  reports::PrintQueues& Queues() override { return queues_; }

 private:
  Faces faces_;
  PageDrawing drawing_{faces_};
  QtTextPainter texts_;
  CupsQueues queues_;
};

}  // namespace

}  // namespace tessera::qtpaper

// Never taken down: what it holds of the toolkit may not outlive the toolkit's own end.
extern "C" tessera::reports::PagePainter* TesseraPagePainter() {
  tessera::qtpaper::EnsureApplication();
  static tessera::qtpaper::Painter* const painter = [] {
    tessera::SubstituteFontNames();
    return new tessera::qtpaper::Painter;
  }();
  return painter;
}
