#include "controls/novo_box.h"

#include <algorithm>
#include <utility>

#include "controls/character.h"
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
    : size_(size), heights_(heights), measure_(std::move(measure)) {}

void NovoBox::AtivaAtributos(bool on) {
  ReshapeMatrix(Matrix().Columns(), on);
}

void NovoBox::Resize(Size size, Heights heights) {
  size_ = size;
  heights_ = heights;
}

void NovoBox::Ativa(bool fixedHeight) {
  // 1, 2. The page begins anew, the value vector too.
  hoverTitle_.reset();
  pressedTitle_.reset();
  sortColumn_.reset();
  editing_.reset();
  colBoxRef_ = 0;
  // 4, 5. Rows of cells from the title's bottom down.
  rowHeight_ = heights_.cell + (fixedHeight ? kFixedHeightExtra : 0);
  const int frame = size_.height - heights_.title - (ShowsHorizontalBar() ? heights_.bar : 0);
  const bool hasCells = TotalColunas() > 0 && rowHeight_ > 0;
  BeginPage(hasCells ? std::clamp(frame / rowHeight_, 0, kMaxCells / TotalColunas()) : 0);
  // 6. The bars.
  barraHorizontal_.SetSmallChange(kHorizontalStep);
  barraHorizontal_.SetMax(ShowsHorizontalBar() ? TotalWidth() + kVerticalBarInset - size_.width : 0);
  barraHorizontal_.SetValue(0);
}

void NovoBox::ClearBox() {
  pool_.assign(Index(TotalCelulas()), {"", Defaults()});
}

void NovoBox::LinhaAtributo(std::int32_t row, const CellAttributes& attributes) {
  for (std::int32_t column = 0; column < TotalColunas() && InMatrix(row, column); ++column) {
    Matrix().SetAttributes(Index(row), Index(column), WithDefaults(attributes));
  }
  PaintRow(row - LinIniVet());
}

void NovoBox::Desativa() {
  TitleHover(std::nullopt);
  AskFocus(false);
}

void NovoBox::SetFocus(bool has) {
  if (!has) EndEdit();
  BoxRows::SetFocus(has);
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

void NovoBox::GravaVetor(std::int32_t row, std::int32_t column, std::string_view text,
                         CellAttributes attributes) {
  if (!InMatrix(row, column)) return;
  Matrix().SetText(Index(row), Index(column), text);
  if (ComAtributos()) Matrix().SetAttributes(Index(row), Index(column), WithDefaults(std::move(attributes)));
}

bool NovoBox::KeyDown(int code, bool shift) {
  if (Enabled() && editing_ && EditKey(code, shift)) return true;
  const std::int32_t before = LinVetRef();
  if (!MoveKey(code)) return false;
  if (editing_ && LinVetRef() != before) BeginEdit({LinVetRef(), editing_->column});
  return true;
}

bool NovoBox::ClickCelula(int cell) {
  if (!Enabled() || cell < 0 || cell >= TotalCelulas()) return false;
  const Place place = LeVetCel(cell);
  if (editing_ != place) EndEdit();
  if (!SelBox(LeBoxCel(cell).row)) return false;
  colBoxRef_ = place.column;
  if (editing_ != place) BeginEdit(place);
  return true;
}

std::optional<int> NovoBox::CelulaAt(int x, int y) const {
  const auto column = TitleAt(x, 0);
  if (!column || y < heights_.title || rowHeight_ == 0) return std::nullopt;
  const int row = (y - heights_.title) / rowHeight_;
  if (row >= TotalLinhas()) return std::nullopt;
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
  if (!Enabled() || column < 0 || column >= TotalColunas()) return;
  EndEdit();
  pressedTitle_ = column;
  sortDescending_ = sortColumn_ == column && !sortDescending_;
  sortColumn_ = column;
  SortRows(column, sortDescending_);
}

int NovoBox::SortArrowLeft() const {
  return sortColumn_ ? ColumnLeft(*sortColumn_ + 1) - kSortArrowInset : 0;
}

void NovoBox::SetAlteraCelula(bool on) {
  if (!on) EndEdit();
  SetEditable(on);
}

void NovoBox::BeginEdit(Place place) {
  if (!Editable() || !Enabled() || !InMatrix(place.row, place.column)) return;
  EndEdit();
  editing_ = place;
  colBoxRef_ = place.column;
  editor_.SetText(LeVetor(place.row, place.column));
}

bool NovoBox::KeyPress(char character) {
  if (!editing_ || !Enabled() || !IsPrintable(character)) return false;
  editor_.Type(character);
  return EditCell(editing_->row, editing_->column, editor_.Text());
}

// KEPT: a cell of the cursor row too gets its own colours back, not the row's
// (NovoBoxTest.AnEditedCellLosesItsFocusAndItsColours).
void NovoBox::EndEdit() {
  if (!editing_) return;
  const Place place = *std::exchange(editing_, std::nullopt);
  AtributosCelula(place.row - LinIniVet(), place.column, AttributesOf(place.row, place.column));
  if (CelulaPerdeuFoco) CelulaPerdeuFoco();
}

std::string NovoBox::FitText(std::string_view text, int width, const CellAttributes& attributes) const {
  const double factor = size_.width > kWideControl ? kWideFactor : 1;
  const auto widthOf = [&](std::string_view shown) { return measure_(shown, attributes) * factor; };
  const double whole = widthOf(text);
  if (whole <= width) return std::string(text);
  // OPEN: what is measured while a text is shortened has its "..." already, so that these are never cut off.
  const auto cut = [&](std::size_t length) { return std::string(Trim(text.substr(0, length))).append(kCut); };
  // FAST: a shorter beginning is never wider, so a search finds what one character at a time would find. It
  // begins where letters of one width would end, looks beside that place, and goes on by halving.
  std::size_t fitting = 0;
  std::size_t tooLong = text.size();
  const auto letters =
      static_cast<std::size_t>(static_cast<double>(text.size()) * std::max(width, 0) / whole);
  std::size_t next = letters > kCut.size() ? letters - kCut.size() : 1;
  for (int looks = 0; fitting + 1 < tooLong; ++looks) {
    if (looks > 1 || next <= fitting || next >= tooLong) next = fitting + (tooLong - fitting) / 2;
    const bool fits = widthOf(cut(next)) <= width;
    (fits ? fitting : tooLong) = next;
    next = fits ? next + 1 : next - 1;
  }
  return cut(fitting);
}

void NovoBox::PaintRow(int visibleRow) {
  const std::int32_t row = LinIniVet() + visibleRow;
  for (int column = 0; InPool(visibleRow, column); ++column) {
    const bool filled = InMatrix(row, column);
    CellAttributes attributes = filled ? AttributesOf(row, column) : Defaults();
    if (IsCursor(visibleRow)) {
      attributes.fore = CorLetraSel();
      attributes.back = CorFundoSel();
    }
    AtributosCelula(visibleRow, column, attributes);
    GravaCelula(visibleRow, column, filled ? Matrix().Text(Index(row), Index(column)) : std::string_view());
  }
}

CellAttributes NovoBox::AttributesOf(std::int32_t row, std::int32_t column) const {
  const CellAttributes* own = Matrix().Attributes(Index(row), Index(column));
  return own != nullptr ? *own : Defaults();
}

bool NovoBox::InPool(int visibleRow, int column) const {
  return visibleRow >= 0 && visibleRow < TotalLinhas() && column >= 0 && column < TotalColunas();
}

// A key of the edited text. Whether it was one.
bool NovoBox::EditKey(int code, bool shift) {
  if (editor_.MoveKey(code, shift)) return true;
  if (code != key::kBackspace && code != key::kDelete) return false;
  const bool changed = code == key::kBackspace ? editor_.Backspace() : editor_.Delete();
  if (changed) EditCell(editing_->row, editing_->column, editor_.Text());
  return true;
}

}  // namespace tessera
