// Portuguese literals: written in UTF-8 in the source, held as Windows-1252 bytes in the program.
// A character that the code page lacks does not compile.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tessera {

// Code points of the bytes 0x80 to 0x9F (WHATWG index windows-1252); the five bytes that the code page
// leaves undefined stand for the code points of the same number, so that every byte survives a round trip.
inline constexpr std::array<char16_t, 32> kHighCodePoints = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte of a code point, or -1 where the code page lacks it.
constexpr int ByteOfCodePoint(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<int>(codePoint);
  for (std::size_t i = 0; i < kHighCodePoints.size(); ++i) {
    if (kHighCodePoints[i] == codePoint) return 0x80 + static_cast<int>(i);
  }
  return -1;
}

template <std::size_t N>
struct Utf8Literal {
  char text[N]{};
  consteval Utf8Literal(const char (&source)[N]) {
    for (std::size_t i = 0; i < N; ++i) text[i] = source[i];
  }
};

template <Utf8Literal Literal>
struct EncodedLiteral {
  static constexpr std::size_t Length() {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 1 < sizeof Literal.text; ++i) {
      count += (static_cast<unsigned char>(Literal.text[i]) & 0xC0) != 0x80;
    }
    return count;
  }
  static constexpr auto Encode() {
    std::array<char, Length() + 1> out{};
    std::size_t written = 0;
    for (std::size_t i = 0; i + 1 < sizeof Literal.text;) {
      const auto lead = static_cast<unsigned char>(Literal.text[i++]);
      char32_t codePoint = lead;
      int more = 0;
      if (lead >= 0xC2 && lead < 0xE0) {
        codePoint = lead & 0x1F;
        more = 1;
      } else if (lead >= 0xE0 && lead < 0xF0) {
        codePoint = lead & 0x0F;
        more = 2;
      } else if (lead >= 0x80) {
        throw "not in the code page";
      }
      for (; more > 0; --more) {
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(Literal.text[i++]) & 0x3F);
      }
      const int byte = ByteOfCodePoint(codePoint);
      if (byte < 0) throw "not in the code page";
      out[written++] = static_cast<char>(byte);
    }
    return out;
  }
  static constexpr auto bytes = Encode();
};

inline namespace literals {

// "Não"_w is a std::string_view of the literal's Windows-1252 bytes.
template <Utf8Literal Literal>
constexpr std::string_view operator""_w() {
  return {EncodedLiteral<Literal>::bytes.data(), EncodedLiteral<Literal>::Length()};
}

}  // namespace literals

}  // namespace tessera
