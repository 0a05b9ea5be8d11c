#include "image/codec.h"

#include "image/key_table.h"
#include "platform/failure.h"
#include "text/little_endian.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kCountLength = 4;

unsigned ValueOf(char character) {
  return static_cast<unsigned char>(character);
}

char CharacterOf(unsigned value) {
  return static_cast<char>(value & 0xFF);
}

// OPEN: the table has an eleventh, empty place that a damaged text can name. Its characters count as 0, so
// such a text decodes to what it holds: damage gives wrong characters, and only a higher number is a failure.
std::string_view KeyOf(std::size_t number) {
  constexpr std::string_view kNone("\0", 1);
  return number < kKeys.size() ? kKeys[number] : kNone;
}

// Each character of a text mixed with one of a key, which runs through again and again.
template <typename Mix>
void MixRunning(std::string_view from, std::string_view key, char* to, Mix mix) {
  for (std::size_t begin = 0; begin < from.size(); begin += key.size()) {
    const std::string_view stretch = from.substr(begin, key.size());
    for (std::size_t i = 0; i < stretch.size(); ++i) {
      to[begin + i] = CharacterOf(mix(ValueOf(stretch[i]), ValueOf(key[i])));
    }
  }
}

}  // namespace

std::string ComplementText(std::string text) {
  for (char& character : text) character = CharacterOf(255 - ValueOf(character));
  return text;
}

std::string EncodeText(std::string_view plain, Random& random) {
  return EncodeTextWithKey(plain, static_cast<int>(random.Next() * kKeyCount));
}

std::string EncodeTextWithKey(std::string_view plain, int key) {
  std::string encoded = ToLittleEndian(plain.size() + 1, kCountLength);
  encoded.resize(kEncodedOverhead + plain.size(), CharacterOf(255 - static_cast<unsigned>(key)));
  MixRunning(plain, KeyOf(static_cast<std::size_t>(key)), encoded.data() + kEncodedOverhead,
             [](unsigned character, unsigned added) { return 255 - (character + added); });
  return encoded;
}

std::size_t EncodedCount(std::string_view encoded) {
  return FromLittleEndian(encoded, kCountLength);
}

bool IsDecodable(std::string_view encoded) {
  const std::size_t n = EncodedCount(encoded);
  const std::string_view body = Mid(encoded, kEncodedOverhead, n);
  return !body.empty() && 255 - ValueOf(body[0]) <= kKeyCount && body.size() == n;
}

std::string DecodeText(std::string_view encoded) {
  const std::size_t n = EncodedCount(encoded);
  const std::string_view body = Mid(encoded, kEncodedOverhead, n);
  if (body.empty()) FailSubscript();
  const unsigned key = 255 - ValueOf(body[0]);
  if (key > kKeyCount) FailSubscript();
  if (body.size() < n) FailArgument();
  std::string plain(n - 1, '\0');
  MixRunning(body.substr(1), KeyOf(key), plain.data(),
             [](unsigned character, unsigned added) { return 255 - character - added; });
  return plain;
}

std::optional<std::string> TryDecodeText(std::string_view encoded) {
  if (!IsDecodable(encoded)) return std::nullopt;
  return DecodeText(encoded);
}

}  // namespace tessera
