// The vocabulary in which the system's rules speak of text: positions count from 1, 0 means "not found".
// Case mapping is that of the code page, never of the process's locale; the only blank is character 32.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace tessera {

using Position = std::size_t;  // of a character in a text, from 1; 0 is no position

inline constexpr std::string_view kCrLf = "\r\n";

namespace detail {

constexpr std::array<char, 256> MakeUpperTable() {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i) {
    unsigned upper = i;
    if ((i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE && i != 0xF7)) upper = i - 0x20;
    if (i == 0x9A || i == 0x9C || i == 0x9E) upper = i - 0x10;
    if (i == 0xFF) upper = 0x9F;
    table[i] = static_cast<char>(upper);
  }
  return table;
}

constexpr std::array<char, 256> MakeLowerTable(const std::array<char, 256>& upper) {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i) table[i] = static_cast<char>(i);
  for (unsigned i = 0; i < 256; ++i) {
    if (upper[i] != static_cast<char>(i)) table[static_cast<unsigned char>(upper[i])] = static_cast<char>(i);
  }
  return table;
}

inline constexpr std::array<char, 256> kUpper = MakeUpperTable();
inline constexpr std::array<char, 256> kLower = MakeLowerTable(kUpper);

// True if one of the eight bytes is `byte`: a byte of their difference is zero, and borrows.
constexpr bool HoldsByte(std::uint64_t bytes, char byte) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  const std::uint64_t difference = bytes ^ (kOnes * static_cast<unsigned char>(byte));
  return ((difference - kOnes) & ~difference & (kOnes << 7)) != 0;
}

}  // namespace detail

// First occurrence of `sought` in `text` at or behind `start`. The empty text is found at `start`.
Position Find(std::string_view text, std::string_view sought, Position start = 1);

// Last occurrence of `sought` that begins at or before `start`.
Position FindBack(std::string_view text, std::string_view sought, Position start);

// The characters from `start` on, at most `length`; less, or none, where the text ends before.
std::string_view Mid(std::string_view text, Position start, std::size_t length = std::string_view::npos);

std::string_view Left(std::string_view text, std::size_t length);
std::string_view Right(std::string_view text, std::size_t length);

// The character at a position, or NUL outside the text.
char CharAt(std::string_view text, Position position);

bool Contains(std::string_view text, std::string_view sought);
// The offset of the first character that is one of two, or npos: quicker on short texts than the library's
// search for each of several.
inline std::size_t FindEither(std::string_view text, char one, char other) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::size_t i = 0;
  for (; i + kWord <= text.size(); i += kWord) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + i, kWord);
    if (detail::HoldsByte(word, one) || detail::HoldsByte(word, other)) break;
  }
  for (; i < text.size(); ++i) {
    if (text[i] == one || text[i] == other) return i;
  }
  return std::string_view::npos;
}

std::string_view Trim(std::string_view text);
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);

inline char Upper(char character) {
  return detail::kUpper[static_cast<unsigned char>(character)];
}
inline char Lower(char character) {
  return detail::kLower[static_cast<unsigned char>(character)];
}
std::string Upper(std::string_view text);
std::string Lower(std::string_view text);

// Equal when both are upper-cased.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// `text` with every `from` replaced by `to`.
std::string Replace(std::string_view text, char from, char to);

// Order of two texts by the 16-bit codes of their characters: negative, 0 or positive.
int CompareText(std::string_view a, std::string_view b);

// A decimal number of at least `width` digits, zero-filled.
std::string ZeroFilled(long long number, int width);

}  // namespace tessera
