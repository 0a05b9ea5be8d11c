#include "prepare/linking.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera {

namespace {

// A statement begins so many characters behind the "#" of its editor's tag. Everything that is inserted
// stands behind a word, so the place can be told on the text as it came.
constexpr std::size_t kBehindTag = 4;

// Copies the text up to the next place, from an offset on, where a statement may begin; gives that place, or
// the text's length.
std::size_t CopyToPlace(std::string& out, std::string_view text, std::size_t from) {
  const std::size_t tag = text.find('#', from < kBehindTag ? 0 : from - kBehindTag);
  const std::size_t place =
      tag == std::string_view::npos ? text.size() : std::min(tag + kBehindTag, text.size());
  out.append(text.substr(from, place - from));
  return place;
}

bool StandsAt(std::string_view text, std::size_t place, std::string_view word) {
  return text.substr(place).starts_with(word);
}

std::string Bracketed(int depth) {
  return "[" + std::to_string(depth) + "]";
}

// Overwrites every occurrence of `word` with "X"s and counts them.
int CountAndOverwrite(std::string& text, std::string_view word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + word.size())) {
    text.replace(at, word.size(), word.size(), 'X');
    ++count;
  }
  return count;
}

}  // namespace

std::string LinkSeBlocks(std::string_view text) {
  constexpr std::string_view kElse = "CasoContrario";
  constexpr std::string_view kEnd = "FimSe";
  constexpr std::string_view kIf = "Se ";
  std::string out;
  out.reserve(text.size() + text.size() / 16);
  int open = 0;
  int level = 0;
  for (std::size_t i = CopyToPlace(out, text, 0); i < text.size(); i = CopyToPlace(out, text, i)) {
    if (StandsAt(text, i, kElse)) {
      out.append(kElse).append(Bracketed(open - 1));
      i += kElse.size();
    } else if (StandsAt(text, i, kEnd)) {
      open -= 1;
      level = open;
      out.append(kEnd).append(Bracketed(open));
      i += kEnd.size();
    } else if (StandsAt(text, i, kIf)) {
      out.append("Se").append(Bracketed(level)).append(" ");
      open += 1;
      level += 1;
      i += kIf.size();
    } else {
      out.push_back(text[i++]);
    }
  }
  return out;
}

std::string LinkEnquantoBlocks(std::string_view text) {
  constexpr std::string_view kRepeat = "Repita";
  constexpr std::string_view kWhile = "Enquanto";
  std::string out;
  out.reserve(text.size() + text.size() / 16);
  int open = 0;
  int level = 0;
  for (std::size_t i = CopyToPlace(out, text, 0); i < text.size(); i = CopyToPlace(out, text, i)) {
    if (StandsAt(text, i, kRepeat)) {
      open -= 1;
      level = open;
      out.append(kRepeat).append(Bracketed(open));
      i += kRepeat.size();
    } else if (StandsAt(text, i, kWhile)) {
      out.append(kWhile).append(Bracketed(level));
      open += 1;
      level += 1;
      i += kWhile.size();
    } else {
      out.push_back(text[i++]);
    }
  }
  return out;
}

// KEPT: a bare count on everything in the program, names and literals included
// (Linking.TheCheckCountsNamesAndLiterals).
std::string CheckBlocks(std::string_view text) {
  std::string copy = Upper(text);
  std::string message;
  for (const BlockPair& block : BlockPairs()) {
    const int ends = CountAndOverwrite(copy, Upper(block.closing) + "[");
    const int openings = CountAndOverwrite(copy, Upper(block.opening) + "[");
    if (openings != ends) message = OpenBlockMessage(block);
  }
  return message;
}

std::string OpenBlockMessage(const BlockPair& block) {
  return std::string("Comando ")
      .append(block.opening)
      .append(" sem o respectivo ")
      .append(block.closing)
      .append("!");
}

}  // namespace tessera
