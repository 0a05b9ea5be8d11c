// `SpCombo`, the combo box of `Combo`: a field that completes what is typed from its list, and the list that
// opens under it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "controls/text_field.h"

namespace tessera {

class SpCombo {
 public:
  static constexpr std::ptrdiff_t kNoEntry = -1;
  static constexpr std::ptrdiff_t kDefaultListRows = 8;

  const std::string& Text() const { return txtAux_.Text(); }
  const TextField& TxtAux() const { return txtAux_; }
  const std::vector<std::string>& Entries() const { return entries_; }
  bool Enabled() const { return enabled_; }
  bool ListIsOpen() const { return listIsOpen_; }
  // The entry that the field shows, from 0, or kNoEntry.
  std::ptrdiff_t ListIndex() const { return listIndex_; }

  void AddItem(std::string_view text) { entries_.emplace_back(text); }
  // Empties the list; the field keeps its text.
  void Clear();
  void SetText(std::string_view text);
  void SetEnabled(bool enabled);
  void PlaceCaret(std::size_t anchor, std::size_t caret) { txtAux_.Select(anchor, caret); }
  // The field takes entry `index`. False where there is none.
  bool SelLista(std::ptrdiff_t index);

  // What the open list shows: so many rows, or as many as there are entries, from the first visible entry on;
  // one entry, or none, is highlighted.
  std::ptrdiff_t ListRows() const;
  std::ptrdiff_t FirstVisible() const { return firstVisible_; }
  std::ptrdiff_t Highlighted() const { return highlighted_; }
  // `ListHeight` in whole rows, at least one.
  void SetListHeight(std::ptrdiff_t rows);

  // A typed character; a key by its code; a click on entry `index` of the list, from 0. Each answers whether
  // the text changed or an entry was chosen, which the owner tells as the change event. In the open list Up,
  // Down, Page Up and Page Down move the highlight, Enter chooses it, Escape closes.
  bool KeyPress(char character);
  bool KeyDown(int code, bool shift);
  // Pasted text, which completes nothing. Whether the text changed.
  bool Paste(std::string_view text);
  bool ListClick(std::ptrdiff_t index);
  // The arrow's click; the pointer over an entry; the wheel, so many rows down, or up if negative.
  void ArrowClick();
  void ListHover(std::ptrdiff_t index);
  void Wheel(std::ptrdiff_t rows);

  void PerdeuFoco() { listIsOpen_ = false; }

 private:
  std::ptrdiff_t EntryOf(std::string_view text) const;
  bool Complete(char character);
  bool Edited(bool changed);
  bool ListKey(int code);
  void SetListIndex(std::ptrdiff_t index);
  void Highlight(std::ptrdiff_t index);
  void ScrollTo(std::ptrdiff_t first);

  TextField txtAux_;
  std::vector<std::string> entries_;
  std::ptrdiff_t listIndex_ = kNoEntry;
  std::ptrdiff_t listHeight_ = kDefaultListRows;
  std::ptrdiff_t firstVisible_ = 0;
  std::ptrdiff_t highlighted_ = kNoEntry;
  bool listIsOpen_ = false;
  bool enabled_ = true;
};

}  // namespace tessera
