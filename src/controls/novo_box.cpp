#include "controls/novo_box.h"

#include <algorithm>
#include <utility>

#include "controls/key_code.h"
#include "text/one_based.h"

namespace tessera {
namespace {

// Controls wider than this measure their texts with a reserve.
constexpr int kWideControl = 6000;
constexpr double kWideFactor = 1.15;
constexpr std::string_view kCut = "...";

std::size_t Index(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

}  // namespace

NovoBox::NovoBox(Size size, Heights heights, Measure measure)
    : size_(size), heights_(heights), measure_(std::move(measure)) {
  matrix_.AppendRow();
  barraVertical_.Change = [this] { ListaVetStr(barraVertical_.Value()); };
}

void NovoBox::Config(const CellAttributes& defaults, std::int32_t corLetraSel, std::int32_t corFundoSel) {
  columns_.clear();
  pool_.clear();
  totalLinhas_ = 0;
  values_.clear();
  valueTexts_ = TextPool();
  matrix_ = BoxMatrix(0, matrix_.HasAttributes());
  ClearVet(true);
  defaults_ = defaults;
  corLetraSel_ = corLetraSel;
  corFundoSel_ = corFundoSel;
  sortColumn_.reset();
}

bool NovoBox::Titulo(std::string_view text, int larg, Align align, bool numeric) {
  if (TotalColunas() == kMaxColumns) return false;
  columns_.push_back({std::string(text), larg, align, numeric});
  ReshapeMatrix(columns_.size(), matrix_.HasAttributes());
  totalLinhas_ = 0;  // the cells are laid out anew by Ativa
  pool_.clear();
  return true;
}

void NovoBox::AtivaAtributos(bool on) {
  ReshapeMatrix(matrix_.Columns(), on);
}

void NovoBox::Ativa(bool fixedHeight) {
  // 1, 2. The page begins anew, the value vector too.
  hoverTitle_.reset();
  pressedTitle_.reset();
  sortColumn_.reset();
  linIniVet_ = 0;
  linBoxRef_ = colBoxRef_ = 0;
  listIndex_ = -1;
  values_.clear();
  valueTexts_ = TextPool();
  // 4, 5. Rows of cells from the title's bottom down.
  rowHeight_ = heights_.cell + (fixedHeight ? kFixedHeightExtra : 0);
  const int frame = size_.height - heights_.title - (ShowsHorizontalBar() ? heights_.bar : 0);
  totalLinhas_ = 0;
  if (TotalColunas() > 0 && rowHeight_ > 0) {
    totalLinhas_ = std::clamp(frame / rowHeight_, 0, kMaxCells / TotalColunas());
  }
  pool_.assign(Index(TotalCelulas()), {"", defaults_});
  // 6. The bars.
  barraHorizontal_.SetSmallChange(kHorizontalStep);
  barraHorizontal_.SetMax(ShowsHorizontalBar() ? TotalWidth() + kVerticalBarInset - size_.width : 0);
  barraHorizontal_.SetValue(0);
  barraVertical_.SetSmallChange(1);
  barraVertical_.SetLargeChange(totalLinhas_);
}

bool NovoBox::Add(std::string_view value, CellAttributes attributes) {
  if (colVet_ >= TotalColunas()) return false;
  matrix_.SetText(Index(LinVet()), Index(colVet_), value);
  if (matrix_.HasAttributes()) {
    matrix_.SetAttributes(Index(LinVet()), Index(colVet_), WithDefaults(std::move(attributes)));
  }
  if (colVet_ == 0) values_.push_back({valueTexts_.Store(value), LinVet()});
  ++colVet_;
  return true;
}

void NovoBox::BoxNew() {
  matrix_.AppendRow();
  colVet_ = 0;
}

void NovoBox::Refresh() {
  UpdateBarMax();
  ListaVetStr(linIniVet_);
}

void NovoBox::ListaVetStr(std::int32_t firstRow) {
  linIniVet_ = std::max(firstRow, 0);
  for (int row = 0; row < totalLinhas_; ++row) PaintRow(row);
}

void NovoBox::Clear() {
  values_.clear();
  valueTexts_ = TextPool();
  ClearVet(true);
  ClearBox();
}

void NovoBox::ClearBox() {
  std::fill(pool_.begin(), pool_.end(), Celula{"", defaults_});
}

void NovoBox::ClearVet(bool keepAttributes) {
  matrix_ = BoxMatrix(columns_.size(), keepAttributes && matrix_.HasAttributes());
  matrix_.AppendRow();
  colVet_ = 0;
  linIniVet_ = 0;
  linBoxRef_ = 0;
  listIndex_ = -1;
  barraVertical_.SetMax(kDefaultBarMax);
  barraVertical_.SetValue(0);
}

// OPEN: a row of another page becomes the first one of its page, as far down as the bar goes, so that the
// cursor row is always one that shows.
void NovoBox::PosicionaCursor(std::int32_t row) {
  const int before = linBoxRef_;
  if (row < linIniVet_ || row >= linIniVet_ + totalLinhas_) {
    UpdateBarMax();
    barraVertical_.SetValue(std::clamp(row, 0, barraVertical_.Max()));
    linIniVet_ = barraVertical_.Value();
    linBoxRef_ = std::clamp(row - linIniVet_, 0, std::max(totalLinhas_ - 1, 0));
    listIndex_ = IndexOfRow(LinVetRef());
    ListaVetStr(linIniVet_);
    return;
  }
  linBoxRef_ = row - linIniVet_;
  listIndex_ = IndexOfRow(LinVetRef());
  PaintRow(before);
  PaintRow(linBoxRef_);
}

bool NovoBox::Selected(std::int32_t index) {
  if (index < 0 || index >= ListCount()) return false;
  PosicionaCursor(values_[Index(index)].row);
  return true;
}

void NovoBox::RemoveLinha(std::int32_t row) {
  if (row < 0 || row >= LinVet()) return;
  matrix_.RemoveRow(Index(row));
  std::erase_if(values_, [row](const Valor& value) { return value.row == row; });
  for (Valor& value : values_) value.row -= value.row > row;
  UpdateBarMax();
  const std::int32_t lastPage = barraVertical_.Max();
  if (barraVertical_.Value() > lastPage) barraVertical_.SetValue(lastPage);
  linIniVet_ = std::min(linIniVet_, lastPage);
  linBoxRef_ = std::clamp(linBoxRef_, 0, std::max(LinVet() - linIniVet_ - 1, 0));
  if (listIndex_ >= 0) listIndex_ = IndexOfRow(LinVetRef());
  AtualizaBox();
}

void NovoBox::LinhaAtributo(std::int32_t row, const CellAttributes& attributes) {
  if (row < 0 || row >= LinVet()) return;
  for (std::int32_t column = 0; column < TotalColunas(); ++column) {
    matrix_.SetAttributes(Index(row), Index(column), WithDefaults(attributes));
  }
  PaintRow(row - linIniVet_);
}

std::string NovoBox::LeCelula(int visibleRow, int column) const {
  return InPool(visibleRow, column) ? pool_[Index(visibleRow * TotalColunas() + column)].text : std::string();
}

void NovoBox::GravaCelula(int visibleRow, int column, std::string_view text) {
  if (!InPool(visibleRow, column)) return;
  Celula& cell = pool_[Index(visibleRow * TotalColunas() + column)];
  cell.text = FitText(text, ColumnWidth(column), cell.attributes);
}

void NovoBox::AtributosCelula(int visibleRow, int column, const CellAttributes& attributes) {
  if (InPool(visibleRow, column)) {
    pool_[Index(visibleRow * TotalColunas() + column)].attributes = WithDefaults(attributes);
  }
}

std::string NovoBox::LeVetor(std::int32_t row, std::int32_t column) const {
  return InMatrix(row, column) ? std::string(matrix_.Text(Index(row), Index(column))) : std::string();
}

void NovoBox::GravaVetor(std::int32_t row, std::int32_t column, std::string_view text,
                         CellAttributes attributes) {
  if (!InMatrix(row, column)) return;
  matrix_.SetText(Index(row), Index(column), text);
  if (matrix_.HasAttributes()) {
    matrix_.SetAttributes(Index(row), Index(column), WithDefaults(std::move(attributes)));
  }
}

std::string NovoBox::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) return {};
  return std::string(TextPool::Text(values_[Index(index)].text));
}

int NovoBox::ColumnLeft(int column) const {
  int left = 0;
  for (int k = 0; k < column; ++k) left += ColumnWidth(k);
  return left;
}

int NovoBox::ColumnWidth(int column) const {
  return columns_[Index(column)].larg * kTwipsPerTextColumn;
}

bool NovoBox::KeyDown(int code) {
  if (!enabled_ || LinVet() == 0 || totalLinhas_ == 0) return false;
  const std::int32_t lastPage = LinVet() - totalLinhas_;
  const std::int32_t value = barraVertical_.Value();
  switch (code) {
    case key::kDown:
      // OPEN: in a list shorter than a page the cursor stays on the rows that there are.
      if (linBoxRef_ >= totalLinhas_ - 1) {
        if (value < lastPage) barraVertical_.SetValue(value + 1);
      } else if (LinVetRef() + 1 < LinVet()) {
        PosicionaCursor(LinVetRef() + 1);
      }
      break;
    case key::kUp:
      if (linBoxRef_ >= 1) {
        PosicionaCursor(LinVetRef() - 1);
      } else if (value > 0) {
        barraVertical_.SetValue(value - 1);
      }
      break;
    case key::kPageDown:
      barraVertical_.SetValue(std::max(value + totalLinhas_ < lastPage ? value + totalLinhas_ : lastPage, 0));
      break;
    case key::kPageUp:
      barraVertical_.SetValue(value - totalLinhas_ >= 1 ? value - totalLinhas_ : 0);
      break;
    default:
      break;
  }
  PosicionaCursor(LinVetRef());
  return true;
}

bool NovoBox::ClickCelula(int cell) {
  if (!enabled_ || cell < 0 || cell >= TotalCelulas()) return false;
  const Place place = LeVetCel(cell);
  if (place.row >= LinVet()) return false;
  colBoxRef_ = place.column;
  PosicionaCursor(place.row);
  return true;
}

std::optional<int> NovoBox::CelulaAt(int x, int y) const {
  const auto column = TitleAt(x, 0);
  if (!column || y < heights_.title || rowHeight_ == 0) return std::nullopt;
  const int row = (y - heights_.title) / rowHeight_;
  if (row >= totalLinhas_) return std::nullopt;
  return row * TotalColunas() + *column;
}

std::optional<int> NovoBox::TitleAt(int x, int y) const {
  if (y < 0 || y >= heights_.title || x < 0 || x >= size_.width) return std::nullopt;
  int right = -barraHorizontal_.Value();
  for (int column = 0; column < TotalColunas(); ++column) {
    right += ColumnWidth(column);
    if (x < right) return column;
  }
  return std::nullopt;
}

NovoBox::TitleState NovoBox::TitleStateOf(int column) const {
  if (pressedTitle_ == column) return TitleState::kLaranja2;
  return hoverTitle_ == column ? TitleState::kLaranja : TitleState::kAzul;
}

void NovoBox::TitleHover(std::optional<int> column) {
  hoverTitle_ = column;
  if (pressedTitle_ != column) pressedTitle_.reset();
}

void NovoBox::ClickTitle(int column) {
  if (!enabled_ || column < 0 || column >= TotalColunas()) return;
  pressedTitle_ = column;
  sortDescending_ = sortColumn_ == column && !sortDescending_;
  sortColumn_ = column;
  SortRows(column);
  AtualizaBox();
}

int NovoBox::SortArrowLeft() const {
  return sortColumn_ ? ColumnLeft(*sortColumn_ + 1) - kSortArrowInset : 0;
}

bool NovoBox::EditCell(std::int32_t row, std::int32_t column, std::string_view text) {
  if (!alteraCelula_ || !enabled_ || !InMatrix(row, column)) return false;
  matrix_.SetText(Index(row), Index(column), text);
  PaintRow(row - linIniVet_);
  if (SofreuAlteracao) SofreuAlteracao();
  return true;
}

std::string NovoBox::FitText(std::string_view text, int width, const CellAttributes& attributes) const {
  const double factor = size_.width > kWideControl ? kWideFactor : 1;
  const auto fits = [&](std::string_view shown) { return measure_(shown, attributes) * factor <= width; };
  if (fits(text)) return std::string(text);
  // OPEN: what is measured while a text is shortened has its "..." already, so that these are never cut off.
  const auto cut = [&](std::size_t length) { return std::string(Trim(text.substr(0, length))).append(kCut); };
  // FAST: a shorter beginning is never wider, so halving finds what one character at a time would find.
  std::size_t fitting = 0;
  for (std::size_t tooLong = text.size(); fitting + 1 < tooLong;) {
    const std::size_t middle = fitting + (tooLong - fitting) / 2;
    (fits(cut(middle)) ? fitting : tooLong) = middle;
  }
  return cut(fitting);
}

CellAttributes NovoBox::WithDefaults(CellAttributes attributes) const {
  if (attributes.fore == -1) attributes.fore = defaults_.fore;
  if (attributes.back == -1) attributes.back = defaults_.back;
  if (attributes.font.empty()) attributes.font = defaults_.font;
  if (attributes.size == 0) attributes.size = defaults_.size;
  attributes.bold = attributes.bold || defaults_.bold;
  return attributes;
}

CellAttributes NovoBox::AttributesOf(std::int32_t row, std::int32_t column) const {
  const CellAttributes* own = matrix_.Attributes(Index(row), Index(column));
  return own != nullptr ? *own : defaults_;
}

bool NovoBox::InMatrix(std::int32_t row, std::int32_t column) const {
  return row >= 0 && row < LinVet() && column >= 0 && column < TotalColunas();
}

bool NovoBox::InPool(int visibleRow, int column) const {
  return visibleRow >= 0 && visibleRow < totalLinhas_ && column >= 0 && column < TotalColunas();
}

// The same rows in a matrix of another shape.
void NovoBox::ReshapeMatrix(std::size_t columns, bool attributes) {
  BoxMatrix reshaped(columns, attributes);
  const std::size_t kept = std::min(columns, matrix_.Columns());
  for (std::size_t row = 0; row < matrix_.Rows(); ++row) {
    reshaped.AppendRow();
    for (std::size_t column = 0; column < kept; ++column) {
      reshaped.SetText(row, column, matrix_.Text(row, column));
      const CellAttributes* own = matrix_.Attributes(row, column);
      if (own != nullptr) reshaped.SetAttributes(row, column, *own);
    }
  }
  matrix_ = std::move(reshaped);
}

// One row of the page from the matrix; a row behind the last one is blank.
void NovoBox::PaintRow(int visibleRow) {
  const std::int32_t row = linIniVet_ + visibleRow;
  const bool cursor = listIndex_ >= 0 && visibleRow == linBoxRef_;
  for (int column = 0; column < TotalColunas() && InPool(visibleRow, column); ++column) {
    CellAttributes attributes = InMatrix(row, column) ? AttributesOf(row, column) : defaults_;
    if (cursor) {
      attributes.fore = corLetraSel_;
      attributes.back = corFundoSel_;
    }
    AtributosCelula(visibleRow, column, attributes);
    const bool filled = InMatrix(row, column);
    GravaCelula(visibleRow, column, filled ? matrix_.Text(Index(row), Index(column)) : std::string_view());
  }
}

// A list shorter than a page leaves the bar at its minimum.
void NovoBox::UpdateBarMax() {
  barraVertical_.SetMax(std::max(LinVet() - totalLinhas_, 0));
}

std::int32_t NovoBox::IndexOfRow(std::int32_t row) const {
  const auto before = [](const Valor& value, std::int32_t sought) { return value.row < sought; };
  const auto found = std::lower_bound(values_.begin(), values_.end(), row, before);
  if (found == values_.end() || found->row != row || row >= LinVet()) return -1;
  return static_cast<std::int32_t>(found - values_.begin());
}

// OPEN: the value vector follows its rows to their new places, so that an index means the same line of the
// list before and after; the cursor stays where it is on the page.
void NovoBox::SortRows(int column) {
  const auto place =
      matrix_.Sort(Index(LinVet()), Index(column), columns_[Index(column)].numeric, sortDescending_);
  for (Valor& value : values_) {
    if (value.row < LinVet()) value.row = static_cast<std::int32_t>(place[Index(value.row)]);
  }
  std::sort(values_.begin(), values_.end(), [](const Valor& a, const Valor& b) { return a.row < b.row; });
  if (listIndex_ >= 0) listIndex_ = IndexOfRow(LinVetRef());
}

}  // namespace tessera
