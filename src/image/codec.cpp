#include "image/codec.h"

#include <utility>

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

// Steps through a key's characters, again and again.
// OPEN: the table has an eleventh, empty place that a damaged text can name. Its characters count as 0, so
// such a text decodes to what it holds: damage gives wrong characters, and only a higher number is a failure.
class RunningKey {
 public:
  explicit RunningKey(std::string_view key) : key_(key) {}
  unsigned Next() {
    if (key_.empty()) return 0;
    const unsigned value = ValueOf(key_[next_]);
    next_ = next_ + 1 == key_.size() ? 0 : next_ + 1;
    return value;
  }

 private:
  std::string_view key_;
  std::size_t next_ = 0;
};

}  // namespace

std::string ComplementText(std::string text) {
  for (char& character : text) character = CharacterOf(255 - ValueOf(character));
  return text;
}

std::string EncodeText(std::string_view plain, Random& random) {
  return EncodeTextWithKey(plain, static_cast<int>(random.Next() * kKeyCount));
}

std::string EncodeTextWithKey(std::string_view plain, int key) {
  std::string scrambled(plain.size() + 1, static_cast<char>(key));
  RunningKey running(kKeys.at(static_cast<std::size_t>(key)));
  for (std::size_t i = 0; i < plain.size(); ++i) {
    scrambled[i + 1] = CharacterOf(ValueOf(plain[i]) + running.Next());
  }
  return ToLittleEndian(plain.size() + 1, kCountLength) + ComplementText(std::move(scrambled));
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
  RunningKey running(key < kKeys.size() ? kKeys[key] : std::string_view());
  std::string plain(n - 1, '\0');
  for (std::size_t i = 1; i < n; ++i) plain[i - 1] = CharacterOf(255 - ValueOf(body[i]) - running.Next());
  return plain;
}

std::optional<std::string> TryDecodeText(std::string_view encoded) {
  if (!IsDecodable(encoded)) return std::nullopt;
  return DecodeText(encoded);
}

}  // namespace tessera
