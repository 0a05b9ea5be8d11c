#include "objects/box_control.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "controls/key_code.h"
#include "objects/list_events.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/act_line.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kBoxSize = {.Width = 400, .Height = 160};
constexpr double kSmallestWidth = 64;
constexpr double kWindowMargin = 8;  // between a grid and the right edge of its window
constexpr int kBarWidth = NovoBox::kVerticalBarInset / static_cast<int>(kTwipsPerPixel);
constexpr int kTitlePadding = 6;  // above and below a title together
constexpr int kRowPadding = 3;    // above and below a text in its cell together

constexpr Colour kCellGround = 0xFFFFFF;
constexpr Colour kCellText = 0;
constexpr Colour kCursorGround = 0xB87C3E;
constexpr Colour kCursorText = 0xFFFFFF;

const CellAttributes kOwnFont = {.fore = kCellText, .back = kCellGround, .font = "Tahoma", .size = 10};

FontFace FaceOf(const CellAttributes& attributes) {
  return {.name = attributes.font, .size = double(attributes.size), .bold = attributes.bold};
}

int Pixels(double length) {
  return static_cast<int>(std::lround(length));
}

int Twips(double pixels) {
  return Pixels(TwipsOfPixels(pixels));
}

// The arrows are squares and the thumb is half as long again; in a short bar all three share the length.
void LayOutBar(ScrollBar& bar, double barLength) {
  const int length = Pixels(barLength);
  const int arrow = std::clamp(kBarWidth, 0, std::max(length / 3, 0));
  const int thumb = std::clamp(kBarWidth * 3 / 2, 0, std::max((length - 2 * arrow) / 2, 0));
  bar.IniciaBarra(length, arrow, thumb);
}

bool Covers(const ControlPlace& place, double x, double y) {
  return x >= place.Left && x < place.Left + place.Width && y >= place.Top && y < place.Top + place.Height;
}

}  // namespace

BoxControl::BoxControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kBoxSize),
      grid_({Twips(kBoxSize.Width), Twips(kBoxSize.Height)}, HeightsOf(),
            [this](std::string_view text, const CellAttributes& attributes) {
              return Measure(text, attributes);
            }),
      titleHeight_(static_cast<int>(PixelsOfTwips(HeightsOf().title))) {
  grid_.SofreuAlteracaoEvent = [this] { Events().OnChange(*this); };
  grid_.CelulaPerdeuFoco = [this] { Events().OnLostFocus(*this); };
}

// The padding counts as text, so that a text that fits stands free of the cell's edges.
int BoxControl::Measure(std::string_view text, const CellAttributes& attributes) const {
  return Twips(form().MeasureText(text, FaceOf(attributes)).width + 2 * kCellPadding);
}

NovoBox::Heights BoxControl::HeightsOf() const {
  const double text = std::ceil(form().MeasureText("X", FaceOf(kOwnFont)).height);
  return {.title = Twips(text + kTitlePadding), .cell = Twips(text + kRowPadding), .bar = Twips(kBarWidth)};
}

// The language side

void BoxControl::Config() {
  SetBackColor(kCellGround);
  SetForeColor(kCellText);
  Change([](NovoBox& grid) {
    grid.Config(kOwnFont, kCursorText, kCursorGround);
    grid.AtivaAtributos(true);
  });
}

// OPEN: a grid is told no width. It takes that of its columns and the bar beside them, so that they all show,
// as far as its window has room.
void BoxControl::Ativa() {
  ControlPlace place = Place();
  const double room = std::max(form().ScaleWidth() - kWindowMargin - place.Left, kSmallestWidth);
  place.Width = std::clamp(PixelsOfTwips(grid_.TotalWidth()) + kBarWidth, kSmallestWidth, room);
  Move(place);
  grid_.Ativa(true);
  LayOutBars();
  Refresh();
}

// OPEN: where the grid has no cell nothing of it shows, so its colours are those of the cells.
void BoxControl::TakeColours() {
  CellAttributes defaults = kOwnFont;
  defaults.fore = ForeColor();
  defaults.back = BackColor();
  Change([&](NovoBox& grid) { grid.SetDefaults(defaults); });
}

// The parts

// OPEN: whole rows alone; what remains of the height below them is no part of the page.
int BoxControl::PageHeight() const {
  return Pixels(PixelsOfTwips(grid_.TotalLinhas() * grid_.RowHeight()));
}

ControlPlace BoxControl::FramePlace() const {
  const ControlPlace all = {.Width = double(Pixels(Place().Width)), .Height = double(Pixels(Place().Height))};
  if (!ShowsBars()) return all;
  const int bar = grid_.ShowsHorizontalBar() ? kBarWidth : 0;
  return {.Width = all.Width, .Height = double(titleHeight_ + PageHeight() + bar)};
}

ControlPlace BoxControl::VerticalBarPlace() const {
  return {.Left = double(Pixels(Place().Width) - kBarWidth),
          .Top = double(titleHeight_),
          .Width = kBarWidth,
          .Height = double(PageHeight())};
}

ControlPlace BoxControl::HorizontalBarPlace() const {
  if (!grid_.ShowsHorizontalBar()) return {};
  return {.Left = 0,
          .Top = double(titleHeight_ + PageHeight()),
          .Width = double(Pixels(Place().Width) - kBarWidth),
          .Height = kBarWidth};
}

void BoxControl::LayOutBars() {
  LayOutBar(grid_.BarraVertical(), VerticalBarPlace().Height);
  LayOutBar(grid_.BarraHorizontal(), HorizontalBarPlace().Width);
}

void BoxControl::Resized() {
  grid_.SetSize({Twips(Pixels(Place().Width)), Twips(Pixels(Place().Height))});
  LayOutBars();
}

void BoxControl::EnabledChanged() {
  grid_.SetEnabled(Enabled());
  grid_.BarraVertical().SetEnabled(Enabled());
  grid_.BarraHorizontal().SetEnabled(Enabled());
}

ScrollBar* BoxControl::BarAt(Point at) {
  if (!ShowsBars()) return nullptr;
  // An empty list has nothing that its bar could move.
  if (Covers(VerticalBarPlace(), at.x, at.y)) return grid_.LinVet() > 0 ? &grid_.BarraVertical() : nullptr;
  return Covers(HorizontalBarPlace(), at.x, at.y) ? &grid_.BarraHorizontal() : nullptr;
}

int BoxControl::AlongBar(const ScrollBar& bar, Point at) const {
  return static_cast<int>(std::floor(IsVertical(bar) ? at.y - titleHeight_ : at.x));
}

ScrollBar::Part BoxControl::HoveredPart(const ScrollBar& bar) const {
  const ControlPlace place = IsVertical(bar) ? VerticalBarPlace() : HorizontalBarPlace();
  if (!pointer_ || !Covers(place, pointer_->x, pointer_->y)) return ScrollBar::Part::kNone;
  return bar.PartAt(AlongBar(bar, *pointer_));
}

double BoxControl::ColumnLeft(int column) const {
  return Pixels(PixelsOfTwips(grid_.ColumnLeft(column) - grid_.BarraHorizontal().Value()));
}

bool BoxControl::IsInside(Point at) const {
  return Covers(FramePlace(), at.x, at.y);
}

std::optional<int> BoxControl::TitleAt(Point at) const {
  return IsInside(at) ? grid_.TitleAt(Twips(at.x), Twips(at.y)) : std::nullopt;
}

std::optional<int> BoxControl::CellAt(Point at) const {
  return IsInside(at) ? grid_.CelulaAt(Twips(at.x), Twips(at.y)) : std::nullopt;
}

// The pointer

void BoxControl::PointerDown(double x, double y) {
  const Point at{x, y};
  if (ScrollBar* bar = BarAt(at)) {
    heldBar_ = bar;
    bar->PointerDown(AlongBar(*bar, at));
  } else if (const auto title = TitleAt(at)) {
    grid_.ClickTitle(*title);
  } else {
    PressCell(at);
  }
  Refresh();
}

void BoxControl::PressCell(Point at) {
  pressed_ = true;
  const auto cell = CellAt(at);
  if (!cell || !grid_.ClickCelula(*cell) || !EditorPlace()) return;
  selectFrom_ = CaretAt(at.x);
  grid_.PlaceEditorCaret(*selectFrom_, *selectFrom_);
}

void BoxControl::PointerDownAgain(double x, double y) {
  PointerDown(x, y);
  if (std::exchange(pressed_, false)) Events().OnDoubleClick(*this);
}

void BoxControl::PointerMove(double x, double y) {
  pointer_ = {x, y};
  if (heldBar_ != nullptr) {
    heldBar_->PointerMove(AlongBar(*heldBar_, *pointer_));
  } else if (selectFrom_ && grid_.EditingPlace()) {
    grid_.PlaceEditorCaret(*selectFrom_, CaretAt(x));
  } else {
    grid_.TitleHover(TitleAt(*pointer_));
  }
  Refresh();
}

void BoxControl::PointerUp(double x, double y) {
  if (heldBar_ != nullptr) heldBar_->PointerUp();
  heldBar_ = nullptr;
  selectFrom_.reset();
  Refresh();
  if (std::exchange(pressed_, false) && IsInside({x, y})) Events().OnClick(*this);
}

void BoxControl::PointerLeave() {
  pointer_.reset();
  Change([](NovoBox& grid) { grid.TitleHover(std::nullopt); });
}

std::string BoxControl::PressLine(double x, double y) {
  const Point at{x, y};
  if (BarAt(at) != nullptr) return {};
  if (const auto title = TitleAt(at)) {
    return ActLine({"clique", Name(), Trim(grid_.Columns()[static_cast<std::size_t>(*title)].titulo)});
  }
  const auto cell = CellAt(at);
  if (!cell) return ActLine({"clique", Name()});
  const NovoBox::Place place = grid_.LeVetCel(*cell);
  if (place.row >= grid_.LinVet()) return ActLine({"clique", Name()});
  const std::string line = ActLine({"linha", Name(), std::to_string(place.row)});
  return place.column == 0 ? line : ActLine({line, std::to_string(place.column)});
}

void BoxControl::Scroll(int rows) {
  if (grid_.LinVet() == 0) return;
  ScrollBar& bar = grid_.BarraVertical();
  bar.SetValue(std::clamp(bar.Value() + rows, 0, bar.Max()));
  Refresh();
}

void BoxControl::Tick() {
  grid_.BarraVertical().Tick();
  grid_.BarraHorizontal().Tick();
  Refresh();
}

// The edited cell

std::optional<ControlPlace> BoxControl::EditorPlace() const {
  const auto& editing = grid_.EditingPlace();
  if (!editing) return std::nullopt;
  const int row = editing->row - grid_.LinIniVet();
  if (row < 0 || row >= grid_.TotalLinhas()) return std::nullopt;
  const double rowHeight = PixelsOfTwips(grid_.RowHeight());
  return ControlPlace{.Left = ColumnLeft(editing->column),
                      .Top = titleHeight_ + row * rowHeight,
                      .Width = PixelsOfTwips(grid_.ColumnWidth(editing->column)),
                      .Height = rowHeight};
}

double BoxControl::EditorWidth(std::size_t characters) const {
  const NovoBox::Place at = *grid_.EditingPlace();
  const std::string_view text = std::string_view(grid_.Editor().Text()).substr(0, characters);
  return form().MeasureText(text, FaceOf(grid_.AttributesOf(at.row, at.column))).width;
}

// A text that is longer than its cell is moved on until the caret shows.
double BoxControl::EditorTextLeft() const {
  const ControlPlace cell = *EditorPlace();
  const double left = cell.Left + kCellPadding;
  const double room = cell.Width - 2 * kCellPadding - 1;
  const double spare = room - EditorWidth(std::string::npos);
  if (spare < 0) return left - std::max(0.0, EditorWidth(grid_.Editor().Caret()) - room);
  switch (grid_.Columns()[static_cast<std::size_t>(grid_.EditingPlace()->column)].align) {
    case TextAlign::kRight:
      return left + spare;
    case TextAlign::kCentre:
      return left + std::floor(spare / 2);
    case TextAlign::kLeft:
      break;
  }
  return left;
}

std::size_t BoxControl::CaretAt(double x) const {
  const double sought = x - EditorTextLeft();
  std::size_t caret = 0;
  const std::size_t length = grid_.Editor().Text().size();
  while (caret < length && (EditorWidth(caret) + EditorWidth(caret + 1)) / 2 <= sought) ++caret;
  return caret;
}

// What a person does with it in one act

void BoxControl::DoubleClick() {
  Click();
  Events().OnDoubleClick(*this);
}

void BoxControl::ClickTitle(std::string_view title) {
  const auto& columns = grid_.Columns();
  const auto column = std::find_if(columns.begin(), columns.end(),
                                   [&](const NovoBox::Column& c) { return Trim(c.titulo) == Trim(title); });
  if (column == columns.end()) return;
  Change([&](NovoBox& grid) { grid.ClickTitle(static_cast<int>(column - columns.begin())); });
}

void BoxControl::ScrollTo(int row) {
  Scroll(row - grid_.LinIniVet());
}

// The row's page as the bar brings it into view.
void BoxControl::BringIntoView(int row) {
  if (row < grid_.LinIniVet() || row >= grid_.LinIniVet() + grid_.TotalLinhas()) ScrollTo(row);
}

void BoxControl::ClickCell(int row, int column) {
  if (row >= grid_.LinVet() || column >= grid_.TotalColunas() || !ShowsBars()) return;
  BringIntoView(row);
  Change([&](NovoBox& grid) { grid.ClickCelula((row - grid.LinIniVet()) * grid.TotalColunas() + column); });
  Click();
}

// Types over what the cell holds.
// OPEN: the cursor goes along, but typing is no click.
void BoxControl::EditCell(int row, int column, std::string_view text) {
  if (!grid_.AlteraCelula() || row >= grid_.LinVet() || column >= grid_.TotalColunas() || !ShowsBars())
    return;
  BringIntoView(row);
  grid_.ClickCelula((row - grid_.LinIniVet()) * grid_.TotalColunas() + column);
  grid_.PlaceEditorCaret(0, std::string::npos);
  if (text.empty()) grid_.KeyDown(key::kDelete);
  for (const char character : text) grid_.KeyPress(character);
  Refresh();
}

// Keys

void BoxControl::OnKeyDown(int keyCode, KeyShift shift) {
  const bool isTold = grid_.KeyDown(keyCode, shift.shift);
  Refresh();
  if (isTold) TellListKey(Events(), *this, keyCode);
}

void BoxControl::OnKeyPress(char character) {
  if (grid_.KeyPress(character)) Refresh();
}

}  // namespace tessera
