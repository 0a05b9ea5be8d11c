// `NovoBox`, the grid of `Box`: a page of cells over a long list of rows, with titles, two bars, a cursor
// row, sorting and editing. Lengths and places are twips from the control's corner, since a column's width is
// told in them; the host measures texts and paints `Pool`. Columns, rows and cursor stand in box_rows.h.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/box_rows.h"
#include "controls/text_field.h"

namespace tessera {

class NovoBox : public BoxRows {
 public:
  static constexpr int kMaxCells = 200;
  // A fixed-height cell is that much higher than its own height.
  static constexpr int kFixedHeightExtra = 15;
  static constexpr int kHorizontalStep = 400;
  static constexpr int kVerticalBarInset = 150;
  static constexpr int kSortArrowInset = 200;
  // What the owner's box says when Selected refuses.
  static constexpr std::string_view kBadIndex = "Selected: Índice inválido!"_w;

  enum class TitleState { kAzul, kLaranja, kLaranja2 };

  // What a cell of the pool shows.
  struct Celula {
    std::string text;
    CellAttributes attributes;
  };

  struct Size {
    int width = 0;
    int height = 0;
  };

  // The height of titles, of a cell in the default font, and of the horizontal bar.
  struct Heights {
    int title = 0;
    int cell = 0;
    int bar = 0;
  };

  // Width of a text in a cell's font.
  using Measure = std::function<int(std::string_view text, const CellAttributes& attributes)>;

  NovoBox(Size size, Heights heights, Measure measure);

  // The focus has left the cell that was being edited; the owner's lost-focus event.
  std::function<void()> CelulaPerdeuFoco;

  // The next page is built for that size.
  void SetSize(Size size) { size_ = size; }

  // Whether each cell keeps attributes of its own; what the rows hold keeps its texts.
  void AtivaAtributos(bool on);
  bool ComAtributos() const { return Matrix().HasAttributes(); }
  // Another extent or font; the next Ativa lays the page out by them.
  void Resize(Size size, Heights heights);
  void Ativa(bool fixedHeight);
  void ListaVetStr(std::int32_t firstRow) { PaintFrom(firstRow); }
  void AtualizaBox() { PaintFrom(LinIniVet()); }
  void ClearBox() override;
  void LinhaAtributo(std::int32_t row, const CellAttributes& attributes);
  // Releases the grid: the pointer, the cell being edited and the focus.
  void Desativa();
  // The cell being edited loses the grid's focus with it.
  void SetFocus(bool has) override;

  // The pool: reading outside gives empty text, writing is ignored.
  std::string LeCelula(int visibleRow, int column) const;
  void GravaCelula(int visibleRow, int column, std::string_view text);
  void AtributosCelula(int visibleRow, int column, const CellAttributes& attributes);
  // A cell of the rows, under the same rule.
  void GravaVetor(std::int32_t row, std::int32_t column, std::string_view text, CellAttributes attributes);
  CellAttributes AttributesOf(std::int32_t row, std::int32_t column) const;

  struct Place {
    std::int32_t row;
    std::int32_t column;
    bool operator==(const Place&) const = default;
  };
  // The place in the rows, and on the page, of a cell number. The grid must have columns.
  Place LeVetCel(int cell) const { return {cell / TotalColunas() + LinIniVet(), cell % TotalColunas()}; }
  Place LeBoxCel(int cell) const { return {cell / TotalColunas(), cell % TotalColunas()}; }

  int TotalCelulas() const { return TotalLinhas() * TotalColunas(); }
  int ColBoxRef() const { return colBoxRef_; }
  const std::vector<Celula>& Pool() const { return pool_; }

  ScrollBar& BarraHorizontal() { return barraHorizontal_; }
  const ScrollBar& BarraHorizontal() const { return barraHorizontal_; }
  bool ShowsHorizontalBar() const { return TotalWidth() > size_.width; }
  int RowHeight() const { return rowHeight_; }

  // A key-down while the grid has the focus. In a cell being edited Left, Right, Home, End, Backspace and
  // Delete are its text's, and a key that moves the cursor takes the editing along. Whether the owner is
  // told.
  bool KeyDown(int code, bool shift = false);
  // A click on a cell of the pool moves the cursor there and, where editing is on, the focus into the cell.
  // False below the last row and for a disabled grid.
  bool ClickCelula(int cell);
  // The cell under a point, and the title; nothing outside.
  std::optional<int> CelulaAt(int x, int y) const;
  std::optional<int> TitleAt(int x, int y) const;

  TitleState TitleStateOf(int column) const;
  void TitleHover(std::optional<int> column);
  // Sorts by the column: upwards at first, the other way round at each further click on the same title.
  void ClickTitle(int column);
  std::optional<int> SortColumn() const { return sortColumn_; }
  bool SortDescending() const { return sortDescending_; }
  int SortArrowLeft() const;

  bool AlteraCelula() const { return Editable(); }
  // Off ends what is being edited.
  void SetAlteraCelula(bool on);
  // The cell being edited: its place in the rows, its text with caret and selection. A scrolled page may not
  // show it.
  const std::optional<Place>& EditingPlace() const { return editing_; }
  const TextField& Editor() const { return editor_; }
  // Nothing where editing is off or there is no such cell.
  void BeginEdit(Place place);
  void PlaceEditorCaret(std::size_t anchor, std::size_t caret) { editor_.Select(anchor, caret); }
  // A typed character. Whether it went into a cell.
  bool KeyPress(char character);
  // The focus leaves the cell: its default colours return, and the owner is told.
  void EndEdit();

  // A text as a cell of that width shows it: whole, or shortened and followed by "...".
  std::string FitText(std::string_view text, int width, const CellAttributes& attributes) const;

 private:
  void PaintRow(int visibleRow) override;
  int MostRows() const override { return kMaxCells / TotalColunas(); }
  void ForgetRows() override { editing_.reset(); }
  void ForgetColumns() override { sortColumn_.reset(); }
  void LeaveRows() override { EndEdit(); }
  bool InPool(int visibleRow, int column) const;
  bool EditKey(int code, bool shift);

  Size size_;
  Heights heights_;
  Measure measure_;
  std::vector<Celula> pool_;
  ScrollBar barraHorizontal_;
  int rowHeight_ = 0;
  int colBoxRef_ = 0;
  std::optional<Place> editing_;
  TextField editor_;
  std::optional<int> hoverTitle_;
  std::optional<int> pressedTitle_;
  std::optional<int> sortColumn_;
  bool sortDescending_ = false;
};

}  // namespace tessera
