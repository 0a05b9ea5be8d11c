// The masked entry behind `Mascara`: a text whose places take only what the mask lets in. "#" is a place for
// a digit, "A" for a letter or digit, "?" for a letter, "&" for any character; "\" makes the next sign of the
// mask a literal, and every other sign is one. An empty mask is a free text field.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "controls/text_field.h"

namespace tessera {

class MaskField {
 public:
  static constexpr char kOpenPlace = '_';

  // The text with its caret and selection.
  const TextField& Field() const { return field_; }
  const std::string& Text() const { return field_.Text(); }
  const std::string& Mask() const { return mask_; }
  bool Enabled() const { return enabled_; }

  // The text becomes the mask's own, each "#" shown as "_".
  void SetMask(std::string_view mask);
  // Any text, as it is but for each "#", which becomes "_". The next edit fits it to the mask's length.
  void SetText(std::string_view text);
  void SetEnabled(bool enabled) { enabled_ = enabled; }

  // What lies between anchor and caret is selected; both are clipped to the text.
  void Select(std::size_t anchor, std::size_t caret) { field_.Select(anchor, caret); }
  void SelectAll() { field_.SelectAll(); }
  void PlaceCaret(std::size_t caret) { field_.Select(caret, caret); }

  // A typed character goes to the first place at or behind the caret that is no literal; one that this place
  // does not take is refused, and nothing changes. Whether the text changed, told as the change event.
  bool KeyPress(char character);
  // Left, Right, Home, End; Backspace and Delete, which open places and leave literals alone. The answer is
  // that of KeyPress.
  bool KeyDown(int code, bool shift);

 private:
  enum class Place : char { kLiteral, kDigit, kLetterOrDigit, kLetter, kAny };

  static Place PlaceOf(char sign);
  static bool Takes(Place place, char character);
  bool IsOpen(std::size_t place) const { return places_[place] != Place::kLiteral; }
  // The first place at or behind this one that is no literal, or the mask's end.
  std::size_t NextPlace(std::size_t from) const;
  void FitToMask();
  void Put(std::size_t place, char character);
  void ClearSelection();
  void Backspace();
  void Delete();

  TextField field_;
  std::string mask_;
  std::string blank_;          // the text of the mask
  std::vector<Place> places_;  // as many as `blank_` has characters
  bool enabled_ = true;
};

}  // namespace tessera
