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

  const std::string& Text() const { return txtAux_.Text(); }
  const TextField& TxtAux() const { return txtAux_; }
  const std::vector<std::string>& Entries() const { return entries_; }
  bool ListIsOpen() const { return listIsOpen_; }
  // The entry that the field shows, from 0, or kNoEntry.
  std::ptrdiff_t ListIndex() const { return listIndex_; }

  void AddItem(std::string_view text) { entries_.emplace_back(text); }
  // Empties the list; the field keeps its text.
  void Clear();
  void SetText(std::string_view text);
  void SetEnabled(bool enabled);
  void PlaceCaret(std::size_t anchor, std::size_t caret) { txtAux_.Select(anchor, caret); }

  // A typed character; a key by its code; the arrow's click; a click on entry `index` of the list, from 0.
  // Each answers whether the text changed or an entry was chosen, which the owner tells as the change event.
  bool KeyPress(char character);
  bool KeyDown(int code, bool shift);
  void ArrowClick() { listIsOpen_ = enabled_ && !listIsOpen_; }
  bool ListClick(std::ptrdiff_t index);

  void PerdeuFoco() { listIsOpen_ = false; }

 private:
  std::ptrdiff_t EntryOf(std::string_view text) const;
  bool Complete(char character);
  bool Choose(std::ptrdiff_t index);
  bool Edited(bool changed);

  TextField txtAux_;
  std::vector<std::string> entries_;
  std::ptrdiff_t listIndex_ = kNoEntry;
  bool listIsOpen_ = false;
  bool enabled_ = true;
};

}  // namespace tessera
