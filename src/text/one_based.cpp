#include "text/one_based.h"

#include <algorithm>

#include "text/code_page.h"

namespace tessera {

Position Find(std::string_view text, std::string_view sought, Position start) {
  const std::size_t at = text.find(sought, start - 1);  // nothing from 0, or from behind the text
  return at == std::string_view::npos ? 0 : at + 1;
}

Position FindBack(std::string_view text, std::string_view sought, Position start) {
  if (start == 0) return 0;
  const std::size_t at = text.rfind(sought, start - 1);
  return at == std::string_view::npos ? 0 : at + 1;
}

std::string_view Mid(std::string_view text, Position start, std::size_t length) {
  if (start == 0 || start > text.size()) return {};
  return text.substr(start - 1, length);
}

std::string_view Left(std::string_view text, std::size_t length) {
  return text.substr(0, length);
}

std::string_view Right(std::string_view text, std::size_t length) {
  return text.substr(text.size() - std::min(length, text.size()));
}

char CharAt(std::string_view text, Position position) {
  return position == 0 || position > text.size() ? '\0' : text[position - 1];
}

bool Contains(std::string_view text, std::string_view sought) {
  return text.find(sought) != std::string_view::npos;
}

std::string_view TrimLeft(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

std::string Upper(std::string_view text) {
  std::string out(text);
  for (char& character : out) character = Upper(character);
  return out;
}

std::string Lower(std::string_view text) {
  std::string out(text);
  for (char& character : out) character = Lower(character);
  return out;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Upper(x) == Upper(y); });
}

std::string Replace(std::string_view text, char from, char to) {
  std::string out(text);
  std::replace(out.begin(), out.end(), from, to);
  return out;
}

int CompareText(std::string_view a, std::string_view b) {
  const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  if (left == a.end()) return right == b.end() ? 0 : -1;
  if (right == b.end()) return 1;
  return CodeOfByte(static_cast<unsigned char>(*left)) < CodeOfByte(static_cast<unsigned char>(*right)) ? -1
                                                                                                        : 1;
}

std::string ZeroFilled(long long number, int width) {
  std::string digits = std::to_string(number);
  if (digits.size() < static_cast<std::size_t>(width)) {
    digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
  }
  return digits;
}

}  // namespace tessera
