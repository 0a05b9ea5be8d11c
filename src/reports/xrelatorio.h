// `XRelatorio`: the engine that lays out a report. A program drives it with a configuration, columns, and
// then cells, lines and pictures in reading order. The same calls go to pictures of pages, saved one by one
// for the preview, or to the system printer, where a page counts only within the range that was typed in the
// preview. All lengths are twips.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "reports/page.h"
#include "reports/page_files.h"
#include "reports/page_painter.h"
#include "reports/paper_surface.h"
#include "reports/printer.h"
#include "values/run.h"

namespace tessera::reports {

// The pages that a printer pass prints, both ends included.
struct PageRange {
  std::int16_t first = 1;
  std::int16_t last = 9999;
};

// The page in work.
class PagePicture final : public PaperSurface {
 public:
  using PaperSurface::PaperSurface;

  const Page& page() const { return page_; }
  // Gives the page away, and begins an empty one.
  Page Take();
  void Clear() { Take(); }

 protected:
  Page& DrawnPage() override { return page_; }

 private:
  Page page_;
};

class XRelatorio {
 public:
  // All outlive it.
  XRelatorio(Run& run, PagePainter& painter, TextMeasures& measures, Printer& printer,
             SharedPictures& pictures);

  // Begins a report; `stored` is the range of a printer pass. Failure 482 where there is no printer: then all
  // that follows is laid out and drawn nowhere, and `Finaliza` fails as well.
  void Config(std::string_view text, const PageRange& stored);
  void Size(std::string_view text);
  // Failure where a page can't be saved, or the document does not reach the printer.
  void Finaliza();
  void NovaPagina();
  bool TestaFimPag() const { return currentY_ > pageHeight_; }
  void Imagem(const PictureRef& picture, std::int16_t x, bool advance);
  void ImgPic(const PictureRef& picture, std::int16_t x, bool advance);
  // Failure 9 for a column that there is none of.
  void Col(std::int32_t number, std::string_view text);
  void Add(std::string_view text, Colour textColour, Colour cellColour);
  void Imprime(std::string_view text, std::int16_t x);
  void Linha(std::int16_t x1, std::int16_t x2, Colour colour, std::int16_t height);
  void NovaLinha();
  double AlignDir(std::string_view text, double width);
  std::int16_t AlignCen(std::string_view text, double width);
  void PrintColor(std::string_view text, double x, double y, Colour colour);
  std::string MidX(std::string_view text, double width) { return Output().MidX(text, width); }

  // The page files go; the pages themselves stay.
  void EndPages() { files_.Remove(); }

  // The range fields, as typed.
  std::string TxtPagIni;
  std::string TxtPagFim;
  PageRange TypedRange() const;

  // The page label; empty until a page is done.
  const std::string& LblPagina() const { return LblPagina_; }
  std::int16_t ShownPage() const { return shownPage_; }
  std::int16_t PageTotal() const { return pageTotal_; }
  // The arrows of the preview, from 0: first, one back, one on, last.
  void ImgSeta(int arrow);

  // The pages of the preview.
  const std::vector<Page>& Pages() const { return pages_; }

 private:
  static constexpr std::size_t kColumns = 51;

  struct Column {
    std::int16_t width = 20;
    std::string fontName = "MS Sans Serif";
    std::int16_t fontSize = 8;
    bool bold = false;
    std::string alignment = "ESQ";
    bool verticalRules = true;
    bool horizontalRules = true;
    std::int32_t ruleColour = 0;
  };

  PaperSurface& Output() const;
  Column& ColumnAt(std::int32_t number);
  FontFace FontOf(const Column& column) const;
  bool InRange() const;
  void ToLineStart();
  void SavePage();
  void PaintAtLine(const PictureRef& picture, std::int16_t x);
  void AdvanceBy(const PictureRef& picture);
  void DrawRules(const Column& column, double left, double top);

  Run& run_;
  PagePainter& painter_;
  Printer& printer_;
  PagePicture PicXRel_;
  PagePicture nowhere_;  // what a pass without a printer draws on
  PaperSurface* output_ = nullptr;
  PageFiles files_;
  Raster raster_;  // the picture of the page that is saved
  std::vector<Page> pages_;

  std::array<Column, kColumns> columns_;
  std::int16_t currentColumn_ = 0;
  std::int16_t currentX_ = 0;
  std::int16_t currentY_ = 0;
  std::int16_t lineHeight_ = 240;
  std::int16_t pageHeight_ = 15000;
  std::int16_t leftMargin_ = 0;
  std::int32_t topMargin_ = 0;
  bool isVideo_ = false;
  std::int16_t pageTotal_ = 1;
  std::int16_t shownPage_ = 0;
  std::int32_t printPage_ = 1;
  std::string LblPagina_;
};

}  // namespace tessera::reports
