#include "controls/box_rows.h"

#include <algorithm>
#include <utility>

#include "controls/key_code.h"

namespace tessera {
namespace {

std::size_t Index(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

}  // namespace

BoxRows::BoxRows() {
  matrix_.AppendRow();
  barraVertical_.Change = [this] { PaintFrom(barraVertical_.Value()); };
}

void BoxRows::Config(const CellAttributes& defaults, std::int32_t corLetraSel, std::int32_t corFundoSel) {
  ForgetColumns();
  columns_.clear();
  defaults_ = defaults;
  corLetraSel_ = corLetraSel;
  corFundoSel_ = corFundoSel;
  totalLinhas_ = 0;
  Clear();
}

void BoxRows::SetDefaults(const CellAttributes& defaults) {
  defaults_ = defaults;
  PaintFrom(linIniVet_);
}

bool BoxRows::Titulo(std::string_view text, int larg, Align align, bool numeric) {
  if (TotalColunas() == kMaxColumns) return false;
  columns_.push_back({std::string(text), std::clamp(larg, 0, kMaxLarg), align, numeric});
  ReshapeMatrix(columns_.size(), matrix_.HasAttributes());
  totalLinhas_ = std::min(totalLinhas_, MostRows());
  ClearBox();
  PaintFrom(linIniVet_);
  return true;
}

bool BoxRows::Add(std::string_view value, CellAttributes attributes) {
  if (colVet_ >= TotalColunas()) return false;
  matrix_.SetText(Index(LinVet()), Index(colVet_), value);
  if (matrix_.HasAttributes()) {
    matrix_.SetAttributes(Index(LinVet()), Index(colVet_), WithDefaults(std::move(attributes)));
  }
  if (colVet_ == 0) values_.push_back({valueTexts_.Store(value), LinVet()});
  ++colVet_;
  return true;
}

void BoxRows::BoxNew() {
  matrix_.AppendRow();
  colVet_ = 0;
}

void BoxRows::Refresh() {
  UpdateBarMax();
  PaintFrom(linIniVet_);
}

void BoxRows::Clear() {
  ForgetValues();
  ClearVet(true);
  ClearBox();
}

void BoxRows::ClearVet(bool keepAttributes) {
  ForgetRows();
  matrix_ = BoxMatrix(columns_.size(), keepAttributes && matrix_.HasAttributes());
  matrix_.AppendRow();
  colVet_ = 0;
  linIniVet_ = 0;
  linBoxRef_ = 0;
  hasCursor_ = false;
  barraVertical_.SetMax(kDefaultBarMax);
  barraVertical_.SetValue(0);
}

// OPEN: a row of another page becomes the first one of its page, as far down as the bar goes, so that the
// cursor row is always one that shows.
void BoxRows::PosicionaCursor(std::int32_t row) {
  const int before = linBoxRef_;
  if (row < linIniVet_ || row >= linIniVet_ + totalLinhas_) {
    UpdateBarMax();
    barraVertical_.SetValue(std::clamp(row, 0, barraVertical_.Max()));
    linIniVet_ = barraVertical_.Value();
    linBoxRef_ = std::clamp(row - linIniVet_, 0, std::max(totalLinhas_ - 1, 0));
    hasCursor_ = LinVetRef() < LinVet();
    PaintFrom(linIniVet_);
    return;
  }
  linBoxRef_ = row - linIniVet_;
  hasCursor_ = LinVetRef() < LinVet();
  PaintRow(before);
  PaintRow(linBoxRef_);
}

bool BoxRows::Selected(std::int32_t index) {
  if (index < 0 || index >= ListCount()) return false;
  PosicionaCursor(values_[Index(index)].row);
  return true;
}

bool BoxRows::SelBox(int visibleRow) {
  if (visibleRow < 0 || visibleRow >= totalLinhas_ || linIniVet_ + visibleRow >= LinVet()) return false;
  PosicionaCursor(linIniVet_ + visibleRow);
  return true;
}

void BoxRows::RemoveLinha(std::int32_t row) {
  LeaveRows();
  if (row < 0 || row >= LinVet()) return;
  matrix_.RemoveRow(Index(row));
  std::erase_if(values_, [row](const Valor& value) { return value.row == row; });
  for (Valor& value : values_) value.row -= value.row > row;
  UpdateBarMax();
  const std::int32_t lastPage = barraVertical_.Max();
  if (barraVertical_.Value() > lastPage) barraVertical_.SetValue(lastPage);
  linIniVet_ = std::min(linIniVet_, lastPage);
  linBoxRef_ = std::clamp(linBoxRef_, 0, std::max(LinVet() - linIniVet_ - 1, 0));
  hasCursor_ = hasCursor_ && LinVet() > 0;
  PaintFrom(linIniVet_);
}

std::string BoxRows::LeVetor(std::int32_t row, std::int32_t column) const {
  return InMatrix(row, column) ? std::string(matrix_.Text(Index(row), Index(column))) : std::string();
}

std::string BoxRows::Arg(std::int32_t column) const {
  return hasCursor_ ? LeVetor(LinVetRef(), column) : std::string();
}

std::string BoxRows::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) return {};
  return std::string(TextPool::Text(values_[Index(index)].text));
}

int BoxRows::ColumnLeft(int column) const {
  int left = 0;
  for (int k = 0; k < column; ++k) left += ColumnWidth(k);
  return left;
}

int BoxRows::ColumnWidth(int column) const {
  return columns_[Index(column)].larg * kTwipsPerTextColumn;
}

std::size_t BoxRows::Bytes() const {
  return matrix_.Bytes() + valueTexts_.Used() + values_.capacity() * sizeof(Valor);
}

bool BoxRows::EditCell(std::int32_t row, std::int32_t column, std::string_view text) {
  if (!editable_ || !enabled_ || !InMatrix(row, column)) return false;
  matrix_.SetText(Index(row), Index(column), text);
  PaintRow(row - linIniVet_);
  sofreuAlteracao_ = true;
  if (SofreuAlteracaoEvent) SofreuAlteracaoEvent();
  return true;
}

void BoxRows::BeginPage(int totalLinhas) {
  linIniVet_ = 0;
  linBoxRef_ = 0;
  hasCursor_ = false;
  ForgetValues();
  totalLinhas_ = totalLinhas;
  ClearBox();
  barraVertical_.SetSmallChange(1);
  barraVertical_.SetLargeChange(totalLinhas_);
}

// The cursor stays where it is on the page, and so moves to another row.
void BoxRows::PaintFrom(std::int32_t firstRow) {
  linIniVet_ = std::max(firstRow, 0);
  for (int row = 0; row < totalLinhas_; ++row) PaintRow(row);
}

bool BoxRows::MoveKey(int code) {
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

// OPEN: the value vector follows its rows to their new places, so that an index means the same line of the
// list before and after; the cursor stays where it is on the page.
void BoxRows::SortRows(int column, bool descending) {
  const auto place =
      matrix_.Sort(Index(LinVet()), Index(column), columns_[Index(column)].numeric, descending);
  for (Valor& value : values_) {
    if (value.row < LinVet()) value.row = static_cast<std::int32_t>(place[Index(value.row)]);
  }
  std::sort(values_.begin(), values_.end(), [](const Valor& a, const Valor& b) { return a.row < b.row; });
  PaintFrom(linIniVet_);
}

// The same rows in a matrix of another shape.
void BoxRows::ReshapeMatrix(std::size_t columns, bool attributes) {
  BoxMatrix reshaped(columns, attributes);
  const std::size_t kept = std::min(columns, matrix_.Columns());
  for (std::size_t row = 0; row < matrix_.Rows(); ++row) {
    reshaped.AppendRow();
    reshaped.SetMark(row, matrix_.Mark(row));
    for (std::size_t column = 0; column < kept; ++column) {
      reshaped.SetText(row, column, matrix_.Text(row, column));
      const CellAttributes* own = matrix_.Attributes(row, column);
      if (own != nullptr) reshaped.SetAttributes(row, column, *own);
    }
  }
  matrix_ = std::move(reshaped);
}

void BoxRows::AskFocus(bool wanted) {
  SetFocus(wanted);
  if (PedeFoco) PedeFoco(wanted);
}

bool BoxRows::InMatrix(std::int32_t row, std::int32_t column) const {
  return row >= 0 && row < LinVet() && column >= 0 && column < TotalColunas();
}

CellAttributes BoxRows::WithDefaults(CellAttributes attributes) const {
  if (attributes.fore == -1) attributes.fore = defaults_.fore;
  if (attributes.back == -1) attributes.back = defaults_.back;
  if (attributes.font.empty()) attributes.font = defaults_.font;
  if (attributes.size == 0) attributes.size = defaults_.size;
  attributes.bold = attributes.bold || defaults_.bold;
  return attributes;
}

void BoxRows::ForgetValues() {
  values_.clear();
  valueTexts_ = TextPool();
}

// A list shorter than a page leaves the bar at its minimum.
void BoxRows::UpdateBarMax() {
  barraVertical_.SetMax(std::max(LinVet() - totalLinhas_, 0));
}

std::int32_t BoxRows::IndexOfRow(std::int32_t row) const {
  const auto before = [](const Valor& value, std::int32_t sought) { return value.row < sought; };
  const auto found = std::lower_bound(values_.begin(), values_.end(), row, before);
  if (found == values_.end() || found->row != row || row >= LinVet()) return -1;
  return static_cast<std::int32_t>(found - values_.begin());
}

}  // namespace tessera
