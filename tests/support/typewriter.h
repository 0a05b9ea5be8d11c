// A painter of pages without a library of fonts, which keeps the sheets of the last document.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "reports/page_painter.h"

namespace tessera::test {

// Each letter is as wide as ten times its points, and as high as twenty times.
class Typewriter final : public reports::PagePainter {
 public:
  std::vector<reports::Page> sheets;
  std::vector<std::string> queues = {"fila"};

  reports::FaceMeasures Measure(const FontFace& face) override {
    reports::FaceMeasures measures;
    measures.advances.fill(face.size * 10);
    measures.ascent = face.size * 15;
    measures.descent = face.size * 5;
    return measures;
  }
  void Paint(const reports::Page&, double, int, int, Raster&) override {}
  std::unique_ptr<reports::PdfDocument> NewPdf(std::string_view) override {
    return std::make_unique<Document>(sheets);
  }
  TextPainter& Texts() override { throw std::logic_error("no texts on surfaces"); }
  reports::PrintQueues& Queues() override { return queues_; }

 private:
  struct Document final : reports::PdfDocument {
    explicit Document(std::vector<reports::Page>& all) : sheets(all) { sheets.clear(); }
    void Add(const reports::Page& page) override { sheets.push_back(page); }
    std::string End() override { return "pdf"; }
    std::vector<reports::Page>& sheets;
  };
  struct Queue final : reports::PrintQueues {
    explicit Queue(const std::vector<std::string>& all) : names(all) {}
    std::vector<std::string> Names() override { return names; }
    std::string Default() override { return {}; }
    bool Send(const std::string&, const std::string&, std::string_view) override { return true; }
    const std::vector<std::string>& names;
  };
  Queue queues_{queues};
};

}  // namespace tessera::test
