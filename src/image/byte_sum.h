// The sum that tells whether bytes are still what they were: CRC-32 as ISO 3309 has it (polynomial
// 0x04C11DB7, bits reversed).
#pragma once

#include <cstdint>
#include <string_view>

namespace tessera {

// The running sum behind further bytes; it begins with all bits set and ends by their complement.
std::uint32_t AddToSum(std::uint32_t sum, std::string_view bytes);

// The same without the processor's multiplication of polynomials.
std::uint32_t AddToSumByTable(std::uint32_t sum, std::string_view bytes);

}  // namespace tessera
