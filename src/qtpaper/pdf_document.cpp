#include "qtpaper/pdf_document.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "qtpaper/page_drawing.h"
#include "qttext/text.h"

namespace tessera::qtpaper {

namespace {

constexpr int kTwipsOfInch = 1440;
constexpr double kTwipsOfPoint = 20;

class Document final : public reports::PdfDocument {
 public:
  Document(Faces& faces, std::string_view title) : drawing_(faces) {
    buffer_.open(QIODevice::WriteOnly);
    writer_.setTitle(ToQString(title));
    writer_.setCreator("Tessera");
    writer_.setResolution(kTwipsOfInch);
    writer_.setPageSize(
        QPageSize(QSizeF(reports::kPaperWidth / kTwipsOfPoint, reports::kPaperHeight / kTwipsOfPoint),
                  QPageSize::Point, "A4", QPageSize::ExactMatch));
    writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
  }

  void Add(const reports::Page& page) override {
    if (painter_.isActive()) {
      writer_.newPage();
    } else {
      painter_.begin(&writer_);
      // A logo keeps its pixels.
      painter_.setRenderHint(QPainter::LosslessImageRendering);
    }
    drawing_.OnSheet(page, painter_, images_);
  }

  std::string End() override {
    painter_.end();
    buffer_.close();
    return buffer_.data().toStdString();
  }

 private:
  QBuffer buffer_;
  QPdfWriter writer_{&buffer_};
  QPainter painter_;
  PageDrawing drawing_;
  SheetImages images_;
};

}  // namespace

std::unique_ptr<reports::PdfDocument> NewPdfDocument(Faces& faces, std::string_view title) {
  return std::make_unique<Document>(faces, title);
}

}  // namespace tessera::qtpaper
