#include "commands/side_file.h"

#include "platform/binary_file.h"
#include "platform/file_system.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kEntryMark = "#!";
constexpr std::string_view kValueMark = "#@";
constexpr std::string_view kEndMark = "#$";

// Scrambles a text, and unscrambles it: each code's complement.
std::string Scrambled(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(0xFF - static_cast<unsigned char>(c));
  return out;
}

std::string ReadWhole(FileStore& files, const std::string& path) {
  if (!IsFile(files, path)) return {};
  const auto file = BinaryFile::Open(files, path);
  return file->Read(1, static_cast<std::size_t>(file->Size()));
}

// Where the scrambled value of a key begins and ends; a missing end mark leaves it open to the text's end.
struct Place {
  Position begin;
  Position end;  // behind the value
};

// `begin` is 0 for a key that is not there.
Place FindValue(std::string_view text, std::string_view scrambledKey) {
  const std::string head = std::string(kEntryMark).append(scrambledKey).append(kValueMark);
  const Position at = Find(text, head);
  if (at == 0) return {0, 0};
  const Position begin = at + head.size();
  const Position end = Find(text, kEndMark, begin);
  return {begin, end == 0 ? text.size() + 1 : end};
}

}  // namespace

std::string SideFile::LeString(const std::string& path, std::string_view key) {
  if (text_.empty()) text_ = ReadWhole(files_, path);
  const Place place = FindValue(text_, Scrambled(key));
  return place.begin == 0 ? "" : Scrambled(Mid(text_, place.begin, place.end - place.begin));
}

void SideFile::SalvaString(const std::string& path, std::string_view key, std::string_view value) {
  std::string text = ReadWhole(files_, path);
  const std::string scrambledKey = Scrambled(key);
  const std::string ending = Scrambled(value).append(kEndMark);
  const Place place = FindValue(text, scrambledKey);
  if (place.begin == 0) {
    text.append(kEntryMark).append(scrambledKey).append(kValueMark).append(ending);
  } else {
    const std::size_t endMark = place.end > text.size() ? 0 : kEndMark.size();
    text.replace(place.begin - 1, place.end - place.begin + endMark, ending);
  }
  // KEPT: the file is not cut: behind a shorter text the old one's tail stays
  // (SideFile.AShorterTextLeavesTheOldTail).
  BinaryFile::Open(files_, path)->Write(1, text);
  text_ = std::move(text);
}

}  // namespace tessera
