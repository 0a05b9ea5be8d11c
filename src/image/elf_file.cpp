#include "image/elf_file.h"

#include <elf.h>

#include <algorithm>
#include <cstring>

namespace tessera::elf {

namespace {

// A record of the file; zeros where the file ends before it.
template <typename Record>
Record ReadAt(std::string_view file, std::size_t offset) {
  Record record{};
  if (offset <= file.size() && file.size() - offset >= sizeof record)
    std::memcpy(&record, file.data() + offset, sizeof record);
  return record;
}

template <typename Record>
void Append(std::string& file, const Record& record) {
  file.append(reinterpret_cast<const char*>(&record), sizeof record);
}

// The part of the file, or what is there of it.
std::string_view Part(std::string_view file, std::size_t offset, std::size_t size) {
  return offset > file.size() ? std::string_view() : file.substr(offset, size);
}

bool Holds(std::string_view file, std::size_t offset, std::size_t size) {
  return offset <= file.size() && size <= file.size() - offset;
}

// Where the table of the sections ends.
std::size_t TableSize(const Elf64_Ehdr& header) {
  return std::size_t{header.e_shnum} * sizeof(Elf64_Shdr);
}

std::vector<Elf64_Shdr> SectionsOf(std::string_view file) {
  const auto header = ReadAt<Elf64_Ehdr>(file, 0);
  if (!IsElf(file) || header.e_shentsize != sizeof(Elf64_Shdr) ||
      !Holds(file, header.e_shoff, TableSize(header)))
    return {};
  std::vector<Elf64_Shdr> sections;
  for (std::size_t i = 0; i < header.e_shnum; ++i)
    sections.push_back(ReadAt<Elf64_Shdr>(file, header.e_shoff + i * sizeof(Elf64_Shdr)));
  return sections;
}

// The section that holds the sections' names; null where there is none.
const Elf64_Shdr* NamesOf(std::string_view file, const std::vector<Elf64_Shdr>& sections) {
  const std::size_t number = ReadAt<Elf64_Ehdr>(file, 0).e_shstrndx;
  if (number >= sections.size()) return nullptr;
  const Elf64_Shdr& names = sections[number];
  return Holds(file, names.sh_offset, names.sh_size) ? &names : nullptr;
}

}  // namespace

bool IsElf(std::string_view file) {
  const auto header = ReadAt<Elf64_Ehdr>(file, 0);
  return file.starts_with(ELFMAG) && header.e_ident[EI_CLASS] == ELFCLASS64 &&
         header.e_ident[EI_DATA] == ELFDATA2LSB;
}

bool IsCut(std::string_view file) {
  const auto header = ReadAt<Elf64_Ehdr>(file, 0);
  return IsElf(file) && !Holds(file, header.e_shoff, TableSize(header));
}

std::optional<std::string_view> FindSection(std::string_view file, std::string_view name) {
  const std::vector<Elf64_Shdr> sections = SectionsOf(file);
  const Elf64_Shdr* names = NamesOf(file, sections);
  if (names == nullptr) return std::nullopt;
  const std::string_view texts = file.substr(names->sh_offset, names->sh_size);
  for (const Elf64_Shdr& section : sections) {
    const std::string_view text = Part(texts, section.sh_name, name.size() + 1);
    const bool isMeant = text.size() == name.size() + 1 && text.starts_with(name) && text.back() == '\0';
    if (isMeant && section.sh_type == SHT_PROGBITS && Holds(file, section.sh_offset, section.sh_size))
      return file.substr(section.sh_offset, section.sh_size);
  }
  return std::nullopt;
}

std::vector<std::string_view> LoadedBytes(std::string_view file) {
  const auto header = ReadAt<Elf64_Ehdr>(file, 0);
  std::vector<std::string_view> loaded;
  if (!IsElf(file) || header.e_phentsize != sizeof(Elf64_Phdr)) return loaded;
  for (std::size_t i = 0; i < header.e_phnum; ++i) {
    const auto segment = ReadAt<Elf64_Phdr>(file, header.e_phoff + i * sizeof(Elf64_Phdr));
    if (segment.p_type != PT_LOAD) continue;
    const std::size_t begin = std::max<std::size_t>(segment.p_offset, sizeof(Elf64_Ehdr));
    const std::size_t end = segment.p_offset + segment.p_filesz;
    if (end > begin && end >= segment.p_offset) loaded.push_back(Part(file, begin, end - begin));
  }
  return loaded;
}

// Nothing that is there moves: content, names and headers come behind it, and the file's header tells the new
// place.
std::optional<std::string> WithSection(std::string_view file, std::string_view name,
                                       std::string_view content) {
  constexpr std::size_t kTableAlignment = alignof(Elf64_Shdr);
  std::vector<Elf64_Shdr> sections = SectionsOf(file);
  const Elf64_Shdr* oldNames = NamesOf(file, sections);
  if (oldNames == nullptr || sections.size() + 1 >= SHN_LORESERVE) return std::nullopt;

  auto header = ReadAt<Elf64_Ehdr>(file, 0);
  Elf64_Shdr& names = sections[header.e_shstrndx];
  Elf64_Shdr added{};
  added.sh_type = SHT_PROGBITS;
  added.sh_addralign = 1;
  added.sh_name = static_cast<Elf64_Word>(names.sh_size);
  added.sh_offset = file.size();
  added.sh_size = content.size();

  std::string result(file);
  result.append(content);
  const std::string_view oldTexts = file.substr(names.sh_offset, names.sh_size);
  names.sh_offset = result.size();
  result.append(oldTexts).append(name).push_back('\0');
  names.sh_size = result.size() - names.sh_offset;
  result.resize((result.size() + kTableAlignment - 1) / kTableAlignment * kTableAlignment);

  header.e_shoff = result.size();
  header.e_shnum = static_cast<Elf64_Half>(sections.size() + 1);
  for (const Elf64_Shdr& section : sections) Append(result, section);
  Append(result, added);
  std::memcpy(result.data(), &header, sizeof header);
  return result;
}

}  // namespace tessera::elf
