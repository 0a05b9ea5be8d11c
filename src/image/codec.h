// The scrambling codec: a running-key substitution over ten built-in key texts, one of them chosen by chance
// for each text. It guards sources in a program's image, values in record files and scrambled files.
//
//   offset 0  4 bytes  count n = plain length + 1, lowest byte first
//   offset 4  1 byte   255 - number of the key
//   offset 5  n - 1    255 - (plain character + key character, modulo 256)
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host.h"

namespace tessera {

inline constexpr std::size_t kEncodedOverhead = 5;
inline constexpr int kKeyCount = 10;

// The plain text encoded with a key by chance.
std::string EncodeText(std::string_view plain, Random& random);

// The plain text encoded with the key of that number, 0 to kKeyCount - 1.
std::string EncodeTextWithKey(std::string_view plain, int key);

// The plain text; failure 9 where the key number is above 10 or missing, 5 where the text ends before its
// count. There is no check value: other damage yields wrong characters.
std::string DecodeText(std::string_view encoded);

// The same for readers that run before any program: nothing in place of the failure.
std::optional<std::string> TryDecodeText(std::string_view encoded);

// Whether DecodeText has no failure for the text.
bool IsDecodable(std::string_view encoded);

// The count in the first four characters; missing ones read as 0.
std::size_t EncodedCount(std::string_view encoded);

// Each character c as 255 - c. It inverts itself.
std::string ComplementText(std::string text);

}  // namespace tessera
