// Values in slots: each is scrambled by itself and stands at the start of its slot.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "recorddb/tsa_layout.h"

namespace tessera {

// Replaces the bytes at the slot's position by `value`: at most as many as the slot is long, and none outside
// the buffer. A longer value loses its tail, a shorter one leaves the slot's other bytes.
void SlotWrite(std::string& buffer, tsa::Slot slot, std::string_view value);

std::string_view SlotOf(std::string_view buffer, tsa::Slot slot);

// A header's value that is read back after the blanks at its ends are removed: encoded with a key that gives
// it no blank for a last byte, so that it survives.
std::string EncodeTrimmable(std::string_view plain, Random& random);

// The text in a slot whose blanks at the ends are removed first. Failures of DecodeText.
std::string DecodeTrimmed(std::string_view buffer, tsa::Slot slot);

// The number in a header's slot of decimal digits. Failures of DecodeText; 13 where the text is no number.
std::int32_t DecodeDigits(std::string_view encoded);

// Numbers in the byte order of the file, lowest byte first. Missing bytes of a shorter text count as 0.
std::string BytesOf(std::int32_t number);
std::string BytesOf(double number);
std::int32_t IntegerOf(std::string_view bytes);
double DoubleOf(std::string_view bytes);

}  // namespace tessera
