// `BoxList`, the light sibling of the grid: one line for each row, with a check box in front of it. It has no
// cells of its own; the host paints each visible row from Celula and ValChk.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/box_rows.h"

namespace tessera {

class BoxList : public BoxRows {
 public:
  // What the owner's box says when Selected refuses.
  static constexpr std::string_view kBadIndex = "Invalid index!";

  BoxList() = default;

  // The list begins anew, with so many visible rows.
  void Ativa(int totalLinhas) { BeginPage(totalLinhas < 0 ? 0 : totalLinhas); }
  // Shows the rows from this one on.
  void ListBoxStr(std::int32_t firstRow) { PaintFrom(firstRow); }

  // The text of a visible row's cell; empty outside.
  std::string Celula(int visibleRow, int column) const;
  // OPEN: check marks go by the row; ArgChk is that of the row that `Arg` reads, 1 or 0. A row that is not
  // there has none.
  void SetChk(std::int32_t row, bool on);
  bool ValChk(std::int32_t row) const;
  int ArgChk() const;

  // Removes the cursor row. False without one.
  bool DeleteRegistroAtual();
  // Whether nothing but blanks stands in a row, as in one that is not there.
  bool TestaLinhaVazia(std::int32_t row) const;

  // The list shows its vertical bar; it accepts the Delete key; its rows can be edited.
  bool BarraVert() const { return barraVert_; }
  void SetBarraVert(bool on) { barraVert_ = on; }
  bool Delete() const { return delete_; }
  void SetDelete(bool on) { delete_ = on; }
  bool Altera() const { return Editable(); }
  void SetAltera(bool on) { SetEditable(on); }

  // The grid's keys; Delete, where it is accepted, removes the cursor row, and the space bar turns its check
  // mark round. Whether the owner is told.
  bool KeyDown(int code);
  // A click on a visible row, or on its check box. False where there is no row and for a disabled list.
  bool Click(int visibleRow, bool onCheckBox);

 private:
  void ToggleChk();

  bool barraVert_ = true;
  bool delete_ = false;
};

}  // namespace tessera
