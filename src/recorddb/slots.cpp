#include "recorddb/slots.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <system_error>
#include <utility>

#include "image/codec.h"
#include "text/little_endian.h"
#include "values/value.h"

namespace tessera {

void SlotWrite(std::string& buffer, tsa::Slot slot, std::string_view value) {
  if (slot.position == 0 || slot.position > buffer.size()) return;
  value = value.substr(0, std::min(slot.width, buffer.size() - (slot.position - 1)));
  std::copy(value.begin(), value.end(), buffer.begin() + static_cast<std::ptrdiff_t>(slot.position - 1));
}

std::string_view SlotOf(std::string_view buffer, tsa::Slot slot) {
  return Mid(buffer, slot.position, slot.width);
}

std::string EncodeTrimmable(std::string_view plain, Random& random) {
  std::string encoded = EncodeText(plain, random);
  for (int key = 0; encoded.ends_with(' ') && key < kKeyCount; ++key) encoded = EncodeTextWithKey(plain, key);
  return encoded;
}

std::string DecodeTrimmed(std::string_view buffer, tsa::Slot slot) {
  return DecodeText(Trim(SlotOf(buffer, slot)));
}

std::int32_t DecodeDigits(std::string_view encoded) {
  std::string digits = DecodeText(encoded);
  // FAST: mere digits, as they mostly are.
  std::int32_t number = 0;
  const char* const end = digits.data() + digits.size();
  if (const auto read = std::from_chars(digits.data(), end, number);
      read.ec == std::errc() && read.ptr == end)
    return number;
  return Value(std::move(digits)).ToInteger();
}

std::string BytesOf(std::int32_t number) {
  return ToLittleEndian(static_cast<std::uint32_t>(number), 4);
}

std::string BytesOf(double number) {
  return ToLittleEndian(std::bit_cast<std::uint64_t>(number), 8);
}

std::int32_t IntegerOf(std::string_view bytes) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(FromLittleEndian(bytes, 4)));
}

double DoubleOf(std::string_view bytes) {
  return std::bit_cast<double>(FromLittleEndian(bytes, 8));
}

}  // namespace tessera
