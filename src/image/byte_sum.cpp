#include "image/byte_sum.h"

#include <array>
#include <cstddef>

#include "text/little_endian.h"

#ifdef __x86_64__
#include <cpuid.h>
#include <immintrin.h>
#endif

namespace tessera {

namespace {

// Eight bytes are taken at a time: row k of the table holds the sums of a byte with k zero bytes behind it.
using SumTable = std::array<std::array<std::uint32_t, 256>, 8>;

consteval SumTable MakeSumTable() {
  constexpr std::uint32_t kPolynomial = 0xEDB88320;  // bits reversed
  SumTable table{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? kPolynomial : 0);
    table[0][byte] = sum;
  }
  for (std::size_t k = 1; k < table.size(); ++k) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      table[k][byte] = (table[k - 1][byte] >> 8) ^ table[0][table[k - 1][byte] & 0xFF];
    }
  }
  return table;
}

constexpr SumTable kSums = MakeSumTable();

#ifdef __x86_64__

constexpr std::size_t kLane = 16;  // bytes of a register
constexpr std::size_t kLanes = 4;

// The remainder of x to that power, bits reversed, at the place where a product of reversed factors wants it.
constexpr long long RemainderOfPower(int power) {
  constexpr std::uint32_t kPolynomial = 0x04C11DB7;
  std::uint32_t remainder = 1;
  for (int i = 0; i < power; ++i) remainder = (remainder << 1) ^ ((remainder >> 31) != 0 ? kPolynomial : 0);
  long long reversed = 0;
  for (int bit = 0; bit < 32; ++bit) reversed |= static_cast<long long>(remainder >> bit & 1) << (31 - bit);
  return reversed << 1;
}

// What a lane counts so many bytes further on, added to what stands there.
template <std::size_t kBytes>
__attribute__((target("pclmul"))) __m128i MovedOn(__m128i lane, __m128i there) {
  constexpr long long kHigh = RemainderOfPower(static_cast<int>(kBytes) * 8 - 32);
  constexpr long long kLow = RemainderOfPower(static_cast<int>(kBytes) * 8 + 32);
  const __m128i factors = _mm_set_epi64x(kHigh, kLow);
  const __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
  const __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), there);
}

// Of whole lanes, four of them at the least. After V. Gopal and others, "Fast CRC Computation for Generic
// Polynomials Using PCLMULQDQ Instruction", 2009: the bytes are folded into one lane that has their sum.
__attribute__((target("pclmul"))) std::uint32_t AddLanesToSum(std::uint32_t sum, std::string_view bytes) {
  const auto laneAt = [&](std::size_t at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + at));
  };
  __m128i lanes[kLanes];
  for (std::size_t i = 0; i < kLanes; ++i) lanes[i] = laneAt(i * kLane);
  lanes[0] = _mm_xor_si128(lanes[0], _mm_cvtsi32_si128(static_cast<int>(sum)));
  std::size_t at = kLanes * kLane;
  for (; at + kLanes * kLane <= bytes.size(); at += kLanes * kLane) {
    for (std::size_t i = 0; i < kLanes; ++i) {
      lanes[i] = MovedOn<kLanes * kLane>(lanes[i], laneAt(at + i * kLane));
    }
  }
  __m128i lane = lanes[0];
  for (std::size_t i = 1; i < kLanes; ++i) lane = MovedOn<kLane>(lane, lanes[i]);
  for (; at < bytes.size(); at += kLane) lane = MovedOn<kLane>(lane, laneAt(at));
  std::array<char, kLane> last;
  _mm_storeu_si128(reinterpret_cast<__m128i*>(last.data()), lane);
  return AddToSumByTable(0, {last.data(), last.size()});
}

// The compiler's own question would be asked at each start of the program, and a virtual machine takes long
// to answer it.
bool Multiplies() {
  unsigned int a = 0, b = 0, features = 0, d = 0;
  return __get_cpuid(1, &a, &b, &features, &d) != 0 && (features & bit_PCLMUL) != 0;
}

#endif

}  // namespace

std::uint32_t AddToSumByTable(std::uint32_t sum, std::string_view bytes) {
  while (bytes.size() >= kSums.size()) {
    const std::uint64_t eight = FromLittleEndian(bytes, kSums.size()) ^ sum;
    sum = 0;
    for (std::size_t i = 0; i < kSums.size(); ++i) {
      sum ^= kSums[kSums.size() - 1 - i][(eight >> (8 * i)) & 0xFF];
    }
    bytes.remove_prefix(kSums.size());
  }
  for (const char c : bytes) sum = (sum >> 8) ^ kSums[0][(sum ^ static_cast<unsigned char>(c)) & 0xFF];
  return sum;
}

std::uint32_t AddToSum(std::uint32_t sum, std::string_view bytes) {
#ifdef __x86_64__
  static const bool multiplies = Multiplies();
  if (multiplies && bytes.size() >= kLanes * kLane) {
    const std::size_t whole = bytes.size() / kLane * kLane;
    sum = AddLanesToSum(sum, bytes.substr(0, whole));
    bytes.remove_prefix(whole);
  }
#endif
  return AddToSumByTable(sum, bytes);
}

}  // namespace tessera
