// `EntraNum`, the entry of `Moeda`: a field that takes nothing but a number with a fixed count of decimals,
// and shows it in groups of three while nobody types in it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/text_field.h"

namespace tessera {

class EntraNum {
 public:
  EntraNum() { SetValue(0); }

  double Value() const { return value_; }
  int Casas() const { return casas_; }
  const TextField& TxtAux() const { return txtAux_; }
  bool Locked() const { return locked_; }
  bool Enabled() const { return enabled_; }

  // Shows the number at once.
  void SetValue(double value);
  // Decimals shown, from 0 to the 6 of the template.
  void SetCasas(int casas);
  void SetLocked(bool locked) { locked_ = locked; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  void SetMaxLength(int length);

  // The next key starts a new entry, in place of what is shown.
  void GanhouFoco();
  void PerdeuFoco();
  // Shows what was typed in groups.
  void FormataNumero();

  // A typed character; a key by its code (arrows, Home, End, Backspace, Delete). Whether the text changed,
  // which the owner tells as the change event.
  bool KeyPress(char character);
  bool KeyDown(int code, bool shift);
  // Pasted text, as if typed; a number in the form in which fields show it comes without its group marks.
  bool Paste(std::string_view text);
  void PlaceCaret(std::size_t anchor, std::size_t caret) { txtAux_.Select(anchor, caret); }
  void SelectAll() { txtAux_.SelectAll(); }

  // A number's text in groups of three with `casas` decimals, both cut to the template's 15 and 6 digits.
  static std::string Formata(std::string_view text, int casas);
  // The lighter one of the border's two colours: each channel half way to white. A system colour stays.
  static std::int32_t Clareia(std::int32_t color);

 private:
  enum class Entry { kStartsAnew = 1, kTyping = 2 };

  bool CampoNumerico(char character);
  void Ungroup();
  void ReadValue();

  TextField txtAux_;
  double value_ = 0;
  int casas_ = 2;
  Entry entry_ = Entry::kStartsAnew;
  bool locked_ = false;
  bool enabled_ = true;
};

}  // namespace tessera
