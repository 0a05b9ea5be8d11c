#include "controls/entra_num.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "controls/character.h"
#include "controls/key_code.h"
#include "controls/numeric_filter.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {
namespace {

constexpr std::string_view kTemplateInteger = "000.000.000.000.000";
constexpr std::size_t kTemplateDecimals = 6;

bool IsSign(char character) {
  return character == '-' || character == '+';
}

bool IsMark(char character) {
  return character == '.' || character == ',';
}

// Where the decimals of a number's text begin with their mark: at its ",", or at its only ".". Further points
// are group marks.
std::size_t DecimalMark(std::string_view text) {
  const std::size_t comma = text.rfind(',');
  if (comma != std::string_view::npos) return comma;
  const std::size_t point = text.find('.');
  return point == text.rfind('.') ? point : std::string_view::npos;
}

std::string DigitsOf(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
  return digits;
}

// A number in positional form; beyond the decimals' range it has no digit that the template could show whole.
std::string Positional(double value) {
  const auto decimal = ExactDecimal::FromDouble(value);
  return decimal ? decimal->ToText() : std::string();
}

}  // namespace

void EntraNum::SetValue(double value) {
  value_ = value;
  txtAux_.SetText(Formata(Positional(value), casas_));
  entry_ = Entry::kStartsAnew;
}

void EntraNum::SetCasas(int casas) {
  casas_ = std::clamp(casas, 0, static_cast<int>(kTemplateDecimals));
  SetValue(value_);
}

void EntraNum::SetMaxLength(int length) {
  txtAux_.SetMaxLength(static_cast<std::size_t>(std::max(length, 0)));
}

void EntraNum::GanhouFoco() {
  entry_ = Entry::kStartsAnew;
  txtAux_.SelectAll();
}

void EntraNum::PerdeuFoco() {
  FormataNumero();
  entry_ = Entry::kStartsAnew;
}

void EntraNum::FormataNumero() {
  txtAux_.SetText(Formata(txtAux_.Text(), casas_));
}

bool EntraNum::KeyPress(char character) {
  if (locked_ || !enabled_) return false;
  // OPEN: "," starts and marks the decimals as "." does, for it is what the field shows.
  if (entry_ == Entry::kStartsAnew && IsMark(character)) {
    entry_ = Entry::kTyping;
    if (value_ == 0) {
      txtAux_.SetText(std::string("0") + character);
      return true;
    }
    Ungroup();
    return CampoNumerico(character);
  }
  if (entry_ == Entry::kStartsAnew && (IsDigit(character) || character == '-')) {
    value_ = 0;
    if (txtAux_.Text() != "-") txtAux_.SetText("");
    entry_ = Entry::kTyping;
  }
  return CampoNumerico(character);
}

bool EntraNum::KeyDown(int code, bool shift) {
  if (!enabled_ || txtAux_.MoveKey(code, shift)) return false;
  // KEPT: Delete removes backwards too (EntraNum.DeleteIsABackspace).
  if (locked_ || (code != key::kBackspace && code != key::kDelete)) return false;
  if (entry_ == Entry::kStartsAnew && txtAux_.SelLength() == 0) Ungroup();
  entry_ = Entry::kTyping;
  if (!txtAux_.Backspace()) return false;
  ReadValue();
  return true;
}

// OPEN: nobody types group marks, but a shown number that was copied has them.
bool EntraNum::Paste(std::string_view text) {
  text = Trim(text);
  std::string typed = WithoutGroupMarks(text);
  if (std::string digits(text); std::erase(digits, '.') > 0 && Formata(digits, casas_) == text)
    typed = digits;
  bool changed = false;
  for (const char character : typed) changed = KeyPress(character) || changed;
  return changed;
}

// Digits, one sign at the start, one decimal mark; whatever is selected counts as gone.
bool EntraNum::CampoNumerico(char character) {
  const std::string& text = txtAux_.Text();
  const std::size_t start = txtAux_.SelStart();
  std::string rest = text.substr(0, start) + text.substr(start + txtAux_.SelLength());
  const bool signedAlready = !rest.empty() && IsSign(rest.front());
  const bool allowed = IsSign(character) ? start == 0 && !signedAlready
                       : IsMark(character)
                           ? std::none_of(rest.begin(), rest.end(), IsMark) && !(start == 0 && signedAlready)
                           : IsDigit(character) && !(start == 0 && signedAlready);
  if (!allowed || !txtAux_.Type(character)) return false;
  ReadValue();
  return true;
}

// OPEN: a shown number that is edited and not begun anew loses its group marks first, so that what is typed
// into it can't be taken for them. The caret stays between its two digits.
void EntraNum::Ungroup() {
  std::string plain = txtAux_.Text();
  std::string inFront = plain.substr(0, txtAux_.Caret());
  std::erase(plain, '.');
  std::erase(inFront, '.');
  txtAux_.SetText(plain);
  txtAux_.Select(inFront.size(), inFront.size());
}

void EntraNum::ReadValue() {
  const std::string& text = txtAux_.Text();
  const std::size_t mark = DecimalMark(text);
  std::string number = text.starts_with('-') ? "-" : "";
  number += DigitsOf(std::string_view(text).substr(0, mark));
  if (mark != std::string::npos) number += "." + DigitsOf(std::string_view(text).substr(mark));
  value_ = LeadingNumber(number);
}

std::string EntraNum::Formata(std::string_view text, int casas) {
  text = Trim(text);
  std::string sign;
  if (!text.empty() && IsSign(text.front())) {
    sign = text.front();
    text = Trim(text.substr(1));
  }
  const std::size_t mark = DecimalMark(text);
  const std::string integer = DigitsOf(text.substr(0, mark));
  std::string decimals = mark == std::string_view::npos ? std::string() : DigitsOf(text.substr(mark));
  if (integer.empty() && decimals.empty()) sign.clear();  // an empty value

  // KEPT: integer digits fill the template from the mark leftwards, and what it has no place for is lost
  // (EntraNum.LosesDigitsBeyondItsTemplate).
  std::string merged(kTemplateInteger);
  std::size_t place = merged.size();
  for (std::size_t digit = integer.size(); digit > 0 && place > 0; --digit) {
    if (merged[place - 1] == '.') --place;
    merged[--place] = integer[digit - 1];
  }
  // OPEN: of leading zeros the last one stays, so that a value below 1 shows "0,50".
  const std::size_t first = std::min(merged.find_first_not_of("0."), merged.size() - 1);
  std::string shown = sign + merged.substr(first);

  decimals.resize(kTemplateDecimals, '0');
  if (casas > 0) shown += "," + decimals.substr(0, static_cast<std::size_t>(casas));
  return shown;
}

// OPEN: the two other operations of the border's drawing have no meaning without a pixel, and are left out.
std::int32_t EntraNum::Clareia(std::int32_t color) {
  constexpr std::int32_t kWhite = 0xFFFFFF;
  constexpr std::int32_t kHalves = 0x7F7F7F;
  if (color < 0 || color > kWhite) return color;
  return color + (((kWhite - color) >> 1) & kHalves);
}

}  // namespace tessera
