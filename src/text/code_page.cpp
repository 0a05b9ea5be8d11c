#include "text/code_page.h"

#include <algorithm>

#include "text/literal.h"

namespace tessera {

namespace {

struct Decoded {
  char32_t codePoint;
  std::size_t length;  // 0: malformed
};

// One UTF-8 sequence (RFC 3629): no overlong forms, no surrogates, nothing above U+10FFFF.
Decoded DecodeOne(std::string_view utf8) {
  const auto lead = static_cast<unsigned char>(utf8[0]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || utf8.size() < length) return {0, 0};
  char32_t codePoint = lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if ((byte & 0xC0) != 0x80) return {0, 0};
    codePoint = (codePoint << 6) | (byte & 0x3F);
  }
  const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (overlong || surrogate || codePoint > 0x10FFFF) return {0, 0};
  return {codePoint, length};
}

bool IsInsideSequence(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

char16_t CodeOfByte(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHighCodePoints[byte - 0x80u] : char16_t{byte};
}

std::string ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (const char character : text) {
    const char16_t code = CodeOfByte(static_cast<unsigned char>(character));
    if (code < 0x80) {
      out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (code >> 6)));
      out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xE0 | (code >> 12)));
      out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
  }
  return out;
}

std::variant<std::string, Utf8Problem> FromUtf8(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0;;) {
    const std::size_t begin = i;
    while (i < utf8.size() && static_cast<unsigned char>(utf8[i]) < 0x80) ++i;
    out.append(utf8.substr(begin, i - begin));
    if (i == utf8.size()) return out;
    const Decoded decoded = DecodeOne(utf8.substr(i));
    if (decoded.length == 0) return Utf8Problem{i, true};
    const int byte = ByteOfCodePoint(decoded.codePoint);
    if (byte < 0) return Utf8Problem{i, false};
    out.push_back(static_cast<char>(byte));
    i += decoded.length;
  }
}

bool IsUtf8BeyondAscii(std::string_view bytes, bool isCut) {
  constexpr std::size_t kLongest = 4;
  bool isBeyond = false;
  for (std::size_t i = 0; i < bytes.size();) {
    const Decoded decoded = DecodeOne(bytes.substr(i));
    if (decoded.length == 0) {
      const std::string_view rest = bytes.substr(i + 1);
      const bool isPart = static_cast<unsigned char>(bytes[i]) >= 0xC2 && rest.size() < kLongest - 1 &&
                          std::all_of(rest.begin(), rest.end(), IsInsideSequence);
      return isCut && isPart && isBeyond;
    }
    isBeyond = isBeyond || decoded.codePoint >= 0x80;
    i += decoded.length;
  }
  return isBeyond;
}

std::string FromUtf8Lossy(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const Decoded decoded = DecodeOne(utf8.substr(i));
    const int byte = decoded.length == 0 ? -1 : ByteOfCodePoint(decoded.codePoint);
    out.push_back(byte < 0 ? '?' : static_cast<char>(byte));
    i += decoded.length == 0 ? 1 : decoded.length;
  }
  return out;
}

}  // namespace tessera
