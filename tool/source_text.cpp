#include "tool/source_text.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t CharacterEnd(std::string_view utf8, std::size_t start) {
  std::size_t end = start + 1;
  while (end < utf8.size() && IsContinuation(utf8[end])) ++end;
  return end;
}

// Conversion stops at its first problem, and a character that the code page lacks may stand before malformed
// bytes: those are sought to the end.
bool IsUtf8(std::string_view bytes) {
  while (true) {
    const auto converted = FromUtf8(bytes);
    const Utf8Problem* problem = std::get_if<Utf8Problem>(&converted);
    if (problem == nullptr) return true;
    if (problem->malformed) return false;
    bytes.remove_prefix(CharacterEnd(bytes, problem->offset));
  }
}

SourceProblem ProblemAt(std::string_view bytes, std::size_t offset, bool utf8, std::string reason) {
  const std::string_view before = bytes.substr(0, offset);
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  const auto countsInColumn = [&](char byte) { return !utf8 || !IsContinuation(byte); };
  return {
      .line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
      .column = static_cast<std::size_t>(std::count_if(
                    before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(), countsInColumn)) +
                1,
      .reason = std::move(reason)};
}

// "U+1F600" of the valid sequence at `offset`.
std::string CodePointName(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  // A lead byte tells of two to four; more continuations than these belong to malformed text.
  const std::size_t length = std::min<std::size_t>(character.size(), 4);
  unsigned codePoint = length == 1 ? lead : lead & (0xFFu >> (length + 1));
  for (const char byte : character.substr(1, length - 1))
    codePoint = (codePoint << 6) | (static_cast<unsigned char>(byte) & 0x3F);
  char name[16];
  std::snprintf(name, sizeof name, "U+%04X", codePoint);
  return name;
}

std::string WithCrLf(std::string_view text) {
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) result.push_back('\r');
    result.push_back(text[i]);
  }
  return result;
}

}  // namespace

std::variant<std::string, SourceProblem> SourceTextFromBytes(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  const bool utf8 = IsUtf8(bytes);
  if (const std::size_t nul = bytes.find('\0'); nul != std::string_view::npos) {
    return ProblemAt(bytes, nul, utf8, "o arquivo não é um texto: tem o caractere de código 0");
  }
  if (!utf8) return WithCrLf(bytes);
  const auto converted = FromUtf8(bytes);
  if (const Utf8Problem* problem = std::get_if<Utf8Problem>(&converted)) {
    const std::string character(
        bytes.substr(problem->offset, CharacterEnd(bytes, problem->offset) - problem->offset));
    return ProblemAt(bytes, problem->offset, utf8,
                     "o caractere \"" + character + "\" (" + CodePointName(character) +
                         ") não existe na página de código Windows-1252");
  }
  return WithCrLf(std::get<std::string>(converted));
}

}  // namespace tessera
