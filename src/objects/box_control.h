// The control `NovoBox` on a window: the grid, its two bars, and what the pointer does to them. Places are
// pixels from the control's corner; the grid inside measures in twips.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "controls/novo_box.h"
#include "windows/control.h"

namespace tessera {

class BoxControl final : public Control {
 public:
  // Pixels on each side of a cell's text.
  static constexpr int kCellPadding = 3;

  BoxControl(Form& form, ControlEvents& events, int index);

  NovoBox& Grid() { return grid_; }
  const NovoBox& Grid() const { return grid_; }
  // Changes the grid and shows it. What only fills it needs no showing: that is the work of `AddEnd`.
  template <typename Act>
  void Change(Act act) {
    act(grid_);
    Refresh();
  }

  // No columns, no rows, the grid's own font and colours.
  void Config();
  // Builds the page. The control becomes as wide as its columns, as far as the window has room.
  void Ativa();
  // The control's colours become those of the cells to come.
  void TakeColours();

  // The looks' view of the parts.
  int TitleHeight() const { return titleHeight_; }
  bool ShowsBars() const { return grid_.TotalLinhas() > 0; }
  // Titles, page and bars; nothing of the control shows outside.
  ControlPlace FramePlace() const;
  ControlPlace VerticalBarPlace() const;
  ControlPlace HorizontalBarPlace() const;
  // The part of a bar below the pointer.
  ScrollBar::Part HoveredPart(const ScrollBar& bar) const;
  // The left edge of a column, as far as the page is scrolled.
  double ColumnLeft(int column) const;
  // The cell that is edited, where the page shows it; its text begins at EditorTextLeft, its first characters
  // are so wide.
  std::optional<ControlPlace> EditorPlace() const;
  double EditorTextLeft() const;
  double EditorWidth(std::size_t characters) const;

  // Button 1 and the pointer's way over the control.
  void PointerDown(double x, double y);
  // The second press of a double click.
  void PointerDownAgain(double x, double y);
  void PointerMove(double x, double y);
  void PointerUp(double x, double y);
  void PointerLeave();
  bool HoldsBar() const { return heldBar_ != nullptr; }
  // The line of a script for a press there; empty on the bars.
  std::string PressLine(double x, double y);
  // Rows that the page moves on, or back.
  void Scroll(int rows);
  // The timer of a held bar.
  bool TimerRuns() const { return grid_.BarraVertical().TimerRuns() || grid_.BarraHorizontal().TimerRuns(); }
  void Tick();

  void Click() override { Events().OnClick(*this); }
  void DoubleClick() override;
  void ClickTitle(std::string_view title) override;
  void ClickRow(int row) override { ClickCell(row, 0); }
  void ClickCell(int row, int column) override;
  void ScrollTo(int row) override;
  void EditCell(int row, int column, std::string_view text) override;

  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyPress(char character) override;

 protected:
  void FocusGained() override { grid_.SetFocus(true); }
  void FocusLost() override { grid_.SetFocus(false); }
  void EnabledChanged() override;
  void Resized() override;

 private:
  struct Point {
    double x;
    double y;
  };

  int Measure(std::string_view text, const CellAttributes& attributes) const;
  NovoBox::Heights HeightsOf() const;
  void LayOutBars();
  int PageHeight() const;
  bool IsVertical(const ScrollBar& bar) const { return &bar == &grid_.BarraVertical(); }
  ScrollBar* BarAt(Point at);
  int AlongBar(const ScrollBar& bar, Point at) const;
  std::optional<int> TitleAt(Point at) const;
  std::optional<int> CellAt(Point at) const;
  bool IsInside(Point at) const;
  void PressCell(Point at);
  // The place of the edited text's character there.
  std::size_t CaretAt(double x) const;
  void BringIntoView(int row);

  NovoBox grid_;
  int titleHeight_;
  std::optional<Point> pointer_;
  ScrollBar* heldBar_ = nullptr;
  bool pressed_ = false;                   // on a cell, or beside the cells
  std::optional<std::size_t> selectFrom_;  // a selection in the edited cell grows from here
};

}  // namespace tessera
