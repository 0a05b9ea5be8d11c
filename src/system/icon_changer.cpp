#include "system/icon_changer.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/binary_file.h"
#include "system/resource_tree.h"
#include "text/little_endian.h"

namespace tessera {

namespace {

constexpr std::uint32_t kIconType = 3;
constexpr std::uint32_t kGroupType = 14;
constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30;

// Where the groups name the icon: the offsets of their entries, of 14 bytes each. The groups' bytes are added
// to `needed`.
std::vector<std::size_t> GroupEntriesOf(std::string_view file, const std::vector<ResourceLeaf>& groups,
                                        std::uint32_t icon, std::vector<FileRange>& needed) {
  constexpr std::size_t kHeader = 6;
  constexpr std::size_t kEntry = 14;
  constexpr std::size_t kId = 12;  // in an entry
  std::vector<std::size_t> found;
  for (const ResourceLeaf& group : groups) {
    const std::size_t most = std::min(group.data.size, file.size() - group.data.offset);
    const std::string_view bytes = file.substr(group.data.offset, most);
    if (bytes.size() < kHeader) continue;
    const std::size_t count =
        std::min<std::size_t>(FromLittleEndian(bytes.substr(4), 2), (bytes.size() - kHeader) / kEntry);
    const std::size_t before = found.size();
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t entry = kHeader + i * kEntry;
      if (FromLittleEndian(bytes.substr(entry + kId), 2) == icon) found.push_back(group.data.offset + entry);
    }
    if (found.size() == before) continue;
    needed.push_back({.offset = group.data.offset, .size = kHeader + count * kEntry});
  }
  return found;
}

}  // namespace

std::variant<std::vector<Patch>, IconProblem> PlanIconChange(std::string_view executable,
                                                             const IconImage& icon) {
  if (!IsPeFile(executable)) return IconProblem::NotExecutable;
  const std::optional<ResourceTree> tree = ResourceTree::Find(executable);
  if (!tree) return IconProblem::NoTree;

  std::vector<FileRange> needed;
  const auto icons = tree->LeavesOf(kIconType, needed);
  const auto groups = tree->LeavesOf(kGroupType, needed);
  if (!icons || !groups) return IconProblem::NoTree;
  if (icons->empty() || icons->front().name > ResourceLeaf::kLastNumber) return IconProblem::NoDirectories;

  const ResourceLeaf& first = icons->front();
  const std::vector<std::size_t> entries = GroupEntriesOf(executable, *groups, first.name, needed);
  const FileRange image{.offset = first.data.offset, .size = icon.bytes.size()};
  // OPEN: an image that covered the way to itself, or a group's entry, could never be found again, and is
  // refused.
  const bool coversTheWay =
      std::any_of(needed.begin(), needed.end(), [&](const FileRange& range) { return range.Meets(image); });
  if (entries.empty() || coversTheWay || image.size > executable.size() - image.offset) {
    return IconProblem::NoDirectories;
  }

  // OPEN: the groups are told the image's width and height as well, since the system chooses by them.
  const std::string size = ToLittleEndian(icon.bytes.size(), 4);
  std::vector<Patch> patches = {{.offset = image.offset, .bytes = std::string(icon.bytes)},
                                {.offset = first.entry + 4, .bytes = size}};
  for (const std::size_t entry : entries) {
    patches.push_back(
        {.offset = entry, .bytes = {static_cast<char>(icon.width), static_cast<char>(icon.height)}});
    patches.push_back({.offset = entry + 8, .bytes = size});
  }
  return patches;
}

namespace {

// The bytes of a file, none where they can't be read.
std::string ReadWhole(const StoredFile& file) {
  std::uint64_t size = 0;
  std::string bytes;
  if (file.Size(size) != 0 || size > kLargestFile) return {};
  if (ReadAllAt(file, 0, static_cast<std::size_t>(size), bytes) != 0) return {};
  return bytes;
}

}  // namespace

std::variant<std::monostate, IconProblem> IconChanger::ReplaceIcon(const std::string& iconFile,
                                                                   const std::string& executable) {
  const auto iconOpened = files_.Open(iconFile, OpenAs::Read);
  if (iconOpened.error != 0) return IconProblem::OpenIcon;
  const std::string iconBytes = ReadWhole(*iconOpened.file);
  const std::optional<IconImage> icon = ReadFirstIcon(iconBytes);
  if (!icon) return IconProblem::InvalidIcon;

  const auto opened = files_.Open(executable, OpenAs::Alone);
  if (opened.error != 0) return IconProblem::OpenExecutable;
  const auto plan = PlanIconChange(ReadWhole(*opened.file), *icon);
  if (const IconProblem* problem = std::get_if<IconProblem>(&plan)) return *problem;
  Write(*opened.file, executable, std::get<std::vector<Patch>>(plan));
  return std::monostate();
}

void IconChanger::Write(StoredFile& file, const std::string& path, const std::vector<Patch>& patches) {
  const std::string old = FreeNameBeside(path);
  std::string at;
  if (const int error = files_.Copy(path, old, at)) FailSystem(error);
  int error = 0;
  for (const Patch& patch : patches) {
    std::string_view bytes = patch.bytes;
    if (error == 0) error = file.WriteAt(patch.offset, bytes);
  }
  if (error == 0) error = file.Sync();
  if (error != 0) {
    files_.TakePlace(old, path);
    FailSystem(error);
  }
  files_.Remove(old);
}

// What a process that was killed has left is somebody's only whole copy.
std::string IconChanger::FreeNameBeside(const std::string& path) const {
  std::string name = path + ".antigo";
  for (int i = 2; files_.IsTaken(name); ++i) name = path + ".antigo" + std::to_string(i);
  return name;
}

}  // namespace tessera
