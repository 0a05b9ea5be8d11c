// `NovoBox`, the grid of `Box`: a page of cells over a long matrix, with titles, two bars, a cursor row,
// sorting and editing. Lengths and places are twips from the control's corner, since a column's width is told
// in them; the host measures texts and paints `Pool`. The rows themselves stand in box_matrix.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/box_matrix.h"
#include "controls/scroll_bar.h"
#include "text/literal.h"

namespace tessera {

class NovoBox {
 public:
  static constexpr int kMaxColumns = 50;
  static constexpr int kMaxCells = 200;
  static constexpr int kTwipsPerTextColumn = 120;
  // A fixed-height cell is that much higher than its own height.
  static constexpr int kFixedHeightExtra = 15;
  static constexpr int kHorizontalStep = 400;
  static constexpr int kVerticalBarInset = 150;
  static constexpr int kSortArrowInset = 200;
  static constexpr int kDefaultBarMax = 100;
  // What the owner's boxes say when Add and Selected refuse; the first is followed by the value.
  static constexpr std::string_view kTooManyCells = "Não pode inserir dados na coluna"_w;
  static constexpr std::string_view kBadIndex = "Selected: Índice inválido!"_w;

  enum class Align { kLeft, kRight, kCentre };
  enum class TitleState { kAzul, kLaranja, kLaranja2 };

  struct Column {
    std::string titulo;
    int larg = 0;  // in text columns
    Align align = Align::kLeft;
    bool numeric = false;
  };

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
  NovoBox(const NovoBox&) = delete;
  NovoBox& operator=(const NovoBox&) = delete;

  // A cell was edited.
  std::function<void()> SofreuAlteracao;

  // Forgets the columns and stores the defaults and the colours of the cursor row.
  void Config(const CellAttributes& defaults, std::int32_t corLetraSel, std::int32_t corFundoSel);
  // False beyond the 50th column.
  bool Titulo(std::string_view text, int larg, Align align, bool numeric);
  // Whether each cell keeps attributes of its own; what the matrix holds keeps its texts.
  void AtivaAtributos(bool on);
  void Ativa(bool fixedHeight);

  // The next cell of the row under construction. A fore or back of -1, an empty font and size 0 take the
  // defaults. False, and nothing stored, where the row is full.
  bool Add(std::string_view value, CellAttributes attributes);
  bool Add(std::string_view value) { return Add(value, {-1, -1, "", 0, false}); }
  void BoxNew();
  void AddEnd() { Refresh(); }
  void Refresh();
  void AtualizaBox() { ListaVetStr(linIniVet_); }
  void ListaVetStr(std::int32_t firstRow);
  void Clear();
  void ClearBox();
  void ClearVet(bool keepAttributes);
  void PosicionaCursor(std::int32_t row);
  // Moves the cursor to an index of the value vector; false outside it.
  bool Selected(std::int32_t index);
  void RemoveLinha(std::int32_t row);
  void LinhaAtributo(std::int32_t row, const CellAttributes& attributes);

  // The pool: reading outside gives empty text, writing is ignored.
  std::string LeCelula(int visibleRow, int column) const;
  void GravaCelula(int visibleRow, int column, std::string_view text);
  void AtributosCelula(int visibleRow, int column, const CellAttributes& attributes);
  // The matrix, under the same rule. A row is readable once BoxNew has closed it.
  std::string LeVetor(std::int32_t row, std::int32_t column) const;
  void GravaVetor(std::int32_t row, std::int32_t column, std::string_view text, CellAttributes attributes);

  struct Place {
    std::int32_t row;
    std::int32_t column;
  };
  // The matrix place, and the visible place, of a cell number. The grid must have columns.
  Place LeVetCel(int cell) const { return {cell / TotalColunas() + linIniVet_, cell % TotalColunas()}; }
  Place LeBoxCel(int cell) const { return {cell / TotalColunas(), cell % TotalColunas()}; }

  std::int32_t ListCount() const { return static_cast<std::int32_t>(values_.size()); }
  // The index of the cursor row's value, or -1.
  std::int32_t ListIndex() const { return listIndex_; }
  // Empty outside the vector.
  std::string List(std::int32_t index) const;

  int TotalColunas() const { return static_cast<int>(columns_.size()); }
  int TotalLinhas() const { return totalLinhas_; }
  int TotalCelulas() const { return totalLinhas_ * TotalColunas(); }
  std::int32_t LinVet() const { return static_cast<std::int32_t>(matrix_.Rows()) - 1; }
  std::int32_t ColVet() const { return colVet_; }
  std::int32_t LinIniVet() const { return linIniVet_; }
  int LinBoxRef() const { return linBoxRef_; }
  int ColBoxRef() const { return colBoxRef_; }
  std::int32_t LinVetRef() const { return linIniVet_ + linBoxRef_; }
  const std::vector<Column>& Columns() const { return columns_; }
  const std::vector<Celula>& Pool() const { return pool_; }
  std::size_t MatrixBytes() const { return matrix_.Bytes(); }

  ScrollBar& BarraVertical() { return barraVertical_; }
  ScrollBar& BarraHorizontal() { return barraHorizontal_; }
  bool ShowsHorizontalBar() const { return TotalWidth() > size_.width; }
  int ColumnLeft(int column) const;
  int ColumnWidth(int column) const;
  int RowHeight() const { return rowHeight_; }
  int TotalWidth() const { return ColumnLeft(TotalColunas()); }

  // A key-down while the grid has the focus. Whether the owner is told; every key but those of a disabled or
  // an empty grid is.
  bool KeyDown(int code);
  // A click on a cell of the pool moves the cursor there. False below the last row and for a disabled grid.
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

  bool AlteraCelula() const { return alteraCelula_; }
  void SetAlteraCelula(bool on) { alteraCelula_ = on; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  // What a person has typed into a matrix cell. False where editing is off or there is no such cell.
  bool EditCell(std::int32_t row, std::int32_t column, std::string_view text);

  // A text as a cell of that width shows it: whole, or shortened and followed by "...".
  std::string FitText(std::string_view text, int width, const CellAttributes& attributes) const;

 private:
  struct Valor {
    TextPool::Ref text;
    std::int32_t row;
  };

  CellAttributes WithDefaults(CellAttributes attributes) const;
  CellAttributes AttributesOf(std::int32_t row, std::int32_t column) const;
  bool InMatrix(std::int32_t row, std::int32_t column) const;
  bool InPool(int visibleRow, int column) const;
  void ReshapeMatrix(std::size_t columns, bool attributes);
  void PaintRow(int visibleRow);
  void UpdateBarMax();
  std::int32_t IndexOfRow(std::int32_t row) const;
  void SortRows(int column);

  Size size_;
  Heights heights_;
  Measure measure_;
  std::vector<Column> columns_;
  CellAttributes defaults_;
  std::int32_t corLetraSel_ = 0;
  std::int32_t corFundoSel_ = 0;
  BoxMatrix matrix_;  // its last row is the one under construction
  TextPool valueTexts_;
  std::vector<Valor> values_;  // in the order of their rows
  std::vector<Celula> pool_;
  ScrollBar barraVertical_;
  ScrollBar barraHorizontal_;
  int rowHeight_ = 0;
  int totalLinhas_ = 0;
  std::int32_t colVet_ = 0;
  std::int32_t linIniVet_ = 0;
  int linBoxRef_ = 0;
  int colBoxRef_ = 0;
  std::int32_t listIndex_ = -1;
  bool alteraCelula_ = false;
  bool enabled_ = true;
  std::optional<int> hoverTitle_;
  std::optional<int> pressedTitle_;
  std::optional<int> sortColumn_;
  bool sortDescending_ = false;
};

}  // namespace tessera
