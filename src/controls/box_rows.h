// What `NovoBox` and `BoxList` share: their columns, the rows behind them and how these are filled, the value
// vector, the cursor, and the page of rows that the cursor and the vertical bar move over. The rows
// themselves stand in box_matrix.h. All rows, columns and indexes count from 0; widths are twips.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "controls/box_matrix.h"
#include "controls/scroll_bar.h"
#include "controls/text_align.h"
#include "text/literal.h"

namespace tessera {

class BoxRows {
 public:
  static constexpr int kMaxColumns = 50;
  static constexpr int kMaxLarg = 32767;
  static constexpr int kTwipsPerTextColumn = 120;
  static constexpr int kDefaultBarMax = 100;
  // What the owner's box says when Add refuses, followed by the value.
  static constexpr std::string_view kTooManyCells = "Não pode inserir dados na coluna"_w;

  using Align = TextAlign;

  struct Column {
    std::string titulo;
    int larg = 0;  // in text columns
    Align align = Align::kLeft;
    bool numeric = false;
  };

  BoxRows(const BoxRows&) = delete;
  BoxRows& operator=(const BoxRows&) = delete;

  // A cell was edited.
  std::function<void()> SofreuAlteracaoEvent;
  // The list wants the focus, or gives it up; the host moves it and tells by SetFocus.
  std::function<void(bool wanted)> PedeFoco;

  // Forgets the columns and stores the defaults and the colours of the cursor row.
  void Config(const CellAttributes& defaults, std::int32_t corLetraSel, std::int32_t corFundoSel);
  // What cells take that are blank, or added without attributes, from now on.
  void SetDefaults(const CellAttributes& defaults);
  // False beyond the 50th column. A width outside 0 to kMaxLarg is clipped. A page that shows keeps its rows,
  // as far as their cells have room.
  bool Titulo(std::string_view text, int larg, Align align, bool numeric);

  // The next cell of the row under construction. A fore or back of -1, an empty font and size 0 take the
  // defaults. False, and nothing stored, where the row is full.
  bool Add(std::string_view value, CellAttributes attributes);
  bool Add(std::string_view value) { return Add(value, {-1, -1, "", 0, false}); }
  void BoxNew();
  // BoxNew for rows without attributes, which the rows know by themselves.
  void BoxNew2() { BoxNew(); }
  void AddEnd() { Refresh(); }
  void Refresh();
  void Clear();
  // Blanks what shows, in the default colours.
  virtual void ClearBox() {}
  void ClearVet(bool keepAttributes);
  void PosicionaCursor(std::int32_t row);
  // Moves the cursor to an index of the value vector; false outside it.
  bool Selected(std::int32_t index);
  // Moves the cursor to a row of the page; false where that shows none.
  bool SelBox(int visibleRow);
  void RemoveLinha(std::int32_t row);

  // A row is readable once BoxNew has closed it; elsewhere the text is empty.
  std::string LeVetor(std::int32_t row, std::int32_t column) const;
  // The cursor row's text in a column; empty without a cursor.
  std::string Arg(std::int32_t column) const;

  std::int32_t ListCount() const { return static_cast<std::int32_t>(values_.size()); }
  // The index of the cursor row's value, or -1.
  std::int32_t ListIndex() const { return hasCursor_ ? IndexOfRow(LinVetRef()) : -1; }
  // Empty outside the vector.
  std::string List(std::int32_t index) const;

  int TotalColunas() const { return static_cast<int>(columns_.size()); }
  int TotalLinhas() const { return totalLinhas_; }
  std::int32_t LinVet() const { return static_cast<std::int32_t>(matrix_.Rows()) - 1; }
  std::int32_t ColVet() const { return colVet_; }
  std::int32_t LinIniVet() const { return linIniVet_; }
  int LinBoxRef() const { return linBoxRef_; }
  std::int32_t LinVetRef() const { return linIniVet_ + linBoxRef_; }
  // Whether a row is selected: the cursor's.
  bool HasCursor() const { return hasCursor_; }
  const std::vector<Column>& Columns() const { return columns_; }
  // What a cell without attributes of its own has; the titles have its font.
  const CellAttributes& Defaults() const { return defaults_; }
  int ColumnLeft(int column) const;
  int ColumnWidth(int column) const;
  int TotalWidth() const { return ColumnLeft(TotalColunas()); }
  // Held by the rows and the value vector, for measuring.
  std::size_t Bytes() const;

  ScrollBar& BarraVertical() { return barraVertical_; }
  const ScrollBar& BarraVertical() const { return barraVertical_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  // Whether a cell was edited since this was last cleared.
  bool SofreuAlteracao() const { return sofreuAlteracao_; }
  void SetSofreuAlteracao(bool on) { sofreuAlteracao_ = on; }
  // What a person has typed into a cell of the matrix. False where editing is off or there is no such cell.
  bool EditCell(std::int32_t row, std::int32_t column, std::string_view text);

  bool HasFocus() const { return hasFocus_; }
  // The host's word about the focus.
  virtual void SetFocus(bool has) { hasFocus_ = has; }
  void SetaFoco() { AskFocus(true); }

 protected:
  BoxRows();
  virtual ~BoxRows() = default;

  // The most rows that a page of these columns can show.
  virtual int MostRows() const { return std::numeric_limits<int>::max(); }
  // Shows a row of the page anew, from its row of the matrix; a row behind the last one is blank.
  virtual void PaintRow(int /*visibleRow*/) {}
  // All rows go, or all columns with them: what a heir keeps of them goes too.
  virtual void ForgetRows() {}
  virtual void ForgetColumns() {}
  // A row will go, and others take its place.
  virtual void LeaveRows() {}

  // The page begins anew, with so many rows and an empty value vector.
  void BeginPage(int totalLinhas);
  void PaintFrom(std::int32_t firstRow);
  // Moves the cursor or the page as a key asks. Whether the owner is told; every key but those of a disabled
  // or an empty list is.
  bool MoveKey(int code);
  void SortRows(int column, bool descending);
  void ReshapeMatrix(std::size_t columns, bool attributes);
  void AskFocus(bool wanted);

  BoxMatrix& Matrix() { return matrix_; }
  const BoxMatrix& Matrix() const { return matrix_; }
  bool InMatrix(std::int32_t row, std::int32_t column) const;
  bool IsCursor(int visibleRow) const { return hasCursor_ && visibleRow == linBoxRef_; }
  CellAttributes WithDefaults(CellAttributes attributes) const;
  std::int32_t CorLetraSel() const { return corLetraSel_; }
  std::int32_t CorFundoSel() const { return corFundoSel_; }
  bool Editable() const { return editable_; }
  void SetEditable(bool on) { editable_ = on; }

 private:
  struct Valor {
    TextPool::Ref text;
    std::int32_t row;
  };

  void ForgetValues();
  void UpdateBarMax();
  std::int32_t IndexOfRow(std::int32_t row) const;

  std::vector<Column> columns_;
  CellAttributes defaults_;
  std::int32_t corLetraSel_ = 0;
  std::int32_t corFundoSel_ = 0;
  BoxMatrix matrix_;  // its last row is the one under construction
  TextPool valueTexts_;
  std::vector<Valor> values_;  // in the order of their rows
  ScrollBar barraVertical_;
  int totalLinhas_ = 0;
  std::int32_t colVet_ = 0;
  std::int32_t linIniVet_ = 0;
  int linBoxRef_ = 0;
  bool hasCursor_ = false;
  bool editable_ = false;
  bool enabled_ = true;
  bool hasFocus_ = false;
  bool sofreuAlteracao_ = false;
};

}  // namespace tessera
