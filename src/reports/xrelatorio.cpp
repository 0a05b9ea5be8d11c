#include "reports/xrelatorio.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/failure.h"
#include "reports/report_keys.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/value.h"

namespace tessera::reports {

namespace {

constexpr std::int16_t kLineHeight = 240;
constexpr std::int16_t kPageHeight = 15000;
constexpr double kTwipsOfCharacter = 120;
constexpr std::size_t kConfiguredColumns = 50;
constexpr Colour kNoCellColour = 0xFFFFFF;
// Between a cell's edge and its text.
constexpr double kCellGap = 50;
constexpr long kNoObject = 91;

// Rounded to 16 bits; failure 6 beyond them.
std::int16_t Short(double number) {
  return Value(number).ToShort();
}

}  // namespace

Page PagePicture::Take() {
  page_.Close();
  return std::exchange(page_, {});
}

XRelatorio::XRelatorio(Run& run, PagePainter& painter, TextMeasures& measures, Printer& printer,
                       SharedPictures& pictures)
    : run_(run),
      painter_(painter),
      printer_(printer),
      PicXRel_(measures),
      nowhere_(measures),
      files_(run, pictures),
      raster_(kPagePixels) {}

PaperSurface& XRelatorio::Output() const {
  if (output_ == nullptr) Fail(kNoObject);
  return *output_;
}

void XRelatorio::Config(std::string_view text, const PageRange& stored) {
  const std::string upper = Upper(text);
  lineHeight_ = kLineHeight;
  pageHeight_ = kPageHeight;
  printPage_ = 1;
  if (const auto margin = ValueOfKey(upper, "MARGEMESQ:")) leftMargin_ = Short(LeadingNumber(*margin));
  if (const auto margin = ValueOfKey(upper, "MARGEMSUP:"))
    topMargin_ = RoundToInteger(LeadingNumber(*margin));
  PicXRel_.Clear();
  pages_.clear();
  pageTotal_ = 1;
  isVideo_ = ValueOfKey(upper, "SAIDA:") == "VIDEO";
  std::fill_n(columns_.begin(), kConfiguredColumns, Column());
  ToLineStart();
  currentY_ = 0;
  const PageRange range = isVideo_ ? PageRange() : stored;
  TxtPagIni = ZeroFilled(range.first, 4);
  TxtPagFim = ZeroFilled(range.last, 4);
  files_.Begin();
  if (isVideo_) {
    output_ = &PicXRel_;
    return;
  }
  output_ = &nowhere_;
  printer_.Require();
  printer_.Font = kPaperFont;
  output_ = &printer_;
}

void XRelatorio::Size(std::string_view text) {
  const std::string upper = Upper(text);
  if (const auto height = ValueOfKey(upper, "TAMLIN:")) lineHeight_ = Short(LeadingNumber(*height));
  if (const auto height = ValueOfKey(upper, "TAMPAG:")) pageHeight_ = Short(LeadingNumber(*height));
}

// KEPT: the first label speaks English; the arrows say " de " (reports.a_report_is_previewed_page_by_page).
void XRelatorio::Finaliza() {
  if (isVideo_) {
    SavePage();
    shownPage_ = 1;
    LblPagina_ = NumberText(shownPage_) + " of " + NumberText(pageTotal_);
  } else {
    if (output_ == &nowhere_) printer_.Require();
    printer_.EndDoc();
  }
}

void XRelatorio::SavePage() {
  painter_.Paint(PicXRel_.page(), 1 / kTwipsOfPixel, 0, 0, raster_);
  files_.Save(pageTotal_, raster_);
  pages_.push_back(PicXRel_.Take());
}

// KEPT: the print page counts in and out of the range, and a page in the range opens the next sheet even
// where nothing will be printed on it (XRelatorioTest.ThePrinterPassCountsAllPagesAndPrintsThoseOfTheRange).
void XRelatorio::NovaPagina() {
  if (isVideo_) {
    SavePage();
    pageTotal_ = Short(pageTotal_ + 1.0);
    LblPagina_ = "1 de " + NumberText(pageTotal_);
    run_.host.events.ProcessEvents();
  } else {
    if (InRange() && &Output() == &printer_) {
      printer_.NewPage();
      printer_.Print("");
    }
    ++printPage_;
  }
  ToLineStart();
  currentY_ = 0;
}

void XRelatorio::ToLineStart() {
  currentColumn_ = 0;
  currentX_ = 0;
}

void XRelatorio::NovaLinha() {
  ToLineStart();
  currentY_ = Short(double(currentY_) + lineHeight_);
}

bool XRelatorio::InRange() const {
  return LeadingNumber(TxtPagIni) <= printPage_ && printPage_ <= LeadingNumber(TxtPagFim);
}

void XRelatorio::Imagem(const PictureRef& picture, std::int16_t x, bool advance) {
  if (InRange()) PaintAtLine(picture, x);
  if (advance) AdvanceBy(picture);
}

void XRelatorio::ImgPic(const PictureRef& picture, std::int16_t x, bool advance) {
  PaintAtLine(picture, x);
  if (advance) AdvanceBy(picture);
}

void XRelatorio::PaintAtLine(const PictureRef& picture, std::int16_t x) {
  Output().PaintPicture(picture, {double(x) + currentX_ + leftMargin_, double(currentY_) + topMargin_});
}

void XRelatorio::AdvanceBy(const PictureRef& picture) {
  currentY_ = Short(currentY_ + picture->size().height * kTwipsOfPixel);
}

XRelatorio::Column& XRelatorio::ColumnAt(std::int32_t number) {
  if (number < 0 || static_cast<std::size_t>(number) >= kColumns) FailSubscript();
  return columns_[static_cast<std::size_t>(number)];
}

void XRelatorio::Col(std::int32_t number, std::string_view text) {
  const std::string upper = Upper(text);
  Column& column = ColumnAt(number);
  const auto number16 = [](const std::string& value) { return Short(LeadingNumber(value)); };
  if (const auto value = ValueOfKey(upper, "TAM:")) {
    column.width = Short(LeadingNumber(*value) * kTwipsOfCharacter);
  }
  if (const auto value = ValueOfKey(upper, "NFONT:")) column.fontName = *value;
  if (const auto value = ValueOfKey(upper, "TFONT:")) column.fontSize = number16(*value);
  if (const auto value = ValueOfKey(upper, "BOLD:")) column.bold = *value == "TRUE";
  if (const auto value = ValueOfKey(upper, "ALIGN:")) column.alignment = *value;
  if (const auto value = ValueOfKey(upper, "TABVER:")) column.verticalRules = *value == "TRUE";
  if (const auto value = ValueOfKey(upper, "TABHOR:")) column.horizontalRules = *value == "TRUE";
  if (const auto value = ValueOfKey(upper, "CORTAB:")) {
    column.ruleColour = RoundToInteger(LeadingNumber(*value));
  }
}

FontFace XRelatorio::FontOf(const Column& column) const {
  return {.name = column.fontName, .size = double(column.fontSize), .bold = column.bold};
}

void XRelatorio::Add(std::string_view text, Colour textColour, Colour cellColour) {
  PaperSurface& output = Output();
  const Column& column = ColumnAt(currentColumn_);
  const double width = column.width;
  const double left = double(leftMargin_) + currentX_;
  const double top = double(topMargin_) + currentY_;
  output.Font = FontOf(column);
  double offset = 0;
  if (column.alignment == "CEN") offset = AlignCen(text, width);
  if (column.alignment == "DIR") offset = AlignDir(text, width - 2 * kCellGap);
  if (cellColour != kNoCellColour && InRange()) {
    output.FillBox({left, top}, {left + width, top + lineHeight_}, cellColour);
  }
  output.CurrentX = left + kCellGap + offset;
  output.CurrentY = top + (lineHeight_ - output.TextHeight(text)) / 2;
  if (InRange()) {
    const std::string cut = MidX(text, width - 4 * kCellGap);
    if (textColour != 0) {
      PrintColor(cut, output.CurrentX, output.CurrentY, textColour);
    } else {
      output.Print(cut);
    }
    DrawRules(column, left, top);
  }
  currentX_ = Short(double(currentX_) + column.width);
  ++currentColumn_;
}

void XRelatorio::DrawRules(const Column& column, double left, double top) {
  PaperSurface& output = Output();
  const double right = left + column.width;
  const double bottom = top + lineHeight_;
  if (column.verticalRules) {
    output.Line({left, top}, {left, bottom}, column.ruleColour);
    output.Line({right, top}, {right, bottom}, column.ruleColour);
  }
  if (column.horizontalRules) {
    output.Line({left, top}, {right, top}, column.ruleColour);
    output.Line({left, bottom}, {right, bottom}, column.ruleColour);
  }
}

void XRelatorio::Imprime(std::string_view text, std::int16_t x) {
  PaperSurface& output = Output();
  output.CurrentX = double(x) + leftMargin_;
  output.CurrentY = double(currentY_) + 25 + topMargin_;
  output.Font = FontOf(columns_[0]);
  if (InRange()) output.Print(text);
}

void XRelatorio::Linha(std::int16_t x1, std::int16_t x2, Colour colour, std::int16_t height) {
  PaperSurface& output = Output();
  if (!InRange()) return;
  const double y = double(currentY_) - 15 + topMargin_;
  output.Line({double(x1) + leftMargin_, y}, {double(x2) + leftMargin_, y + height}, colour);
}

double XRelatorio::AlignDir(std::string_view text, double width) {
  return width - Output().TextWidth(text);
}

std::int16_t XRelatorio::AlignCen(std::string_view text, double width) {
  return Short((width - Output().TextWidth(text)) / 2);
}

// OPEN: the text stands on the page in its colour, with no ground of its own around it, and can be found in a
// PDF as any other.
void XRelatorio::PrintColor(std::string_view text, double x, double y, Colour colour) {
  PaperSurface& output = Output();
  if (!InRange()) return;
  output.CurrentX = x;
  output.CurrentY = y;
  output.Print(text, colour);
}

// OPEN: a number beyond 16 bits is the last page that there can be.
PageRange XRelatorio::TypedRange() const {
  const auto page = [](const std::string& text) {
    constexpr double kMost = std::numeric_limits<std::int16_t>::max();
    return Short(std::clamp(LeadingNumber(text), -kMost, kMost));
  };
  return {page(TxtPagIni), page(TxtPagFim)};
}

void XRelatorio::ImgSeta(int arrow) {
  const auto last = static_cast<std::int16_t>(pages_.size());
  if (last == 0) return;
  if (arrow == 0) shownPage_ = 1;
  if (arrow == 1 && shownPage_ > 1) --shownPage_;
  if (arrow == 2 && shownPage_ < last) ++shownPage_;
  if (arrow == 3) shownPage_ = last;
  LblPagina_ = NumberText(shownPage_) + " de " + NumberText(pageTotal_);
}

}  // namespace tessera::reports
