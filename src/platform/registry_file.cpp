#include "platform/registry_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>

#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

struct Escape {
  char character;
  char letter;
};

// A line of the file is one value, its four pieces parted by tabs.
constexpr std::array kEscapes = {Escape{'\\', '\\'}, Escape{'\t', 't'}, Escape{'\n', 'n'}, Escape{'\r', 'r'}};

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    const auto found =
        std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& e) { return e.character == c; });
    if (found == kEscapes.end()) {
      escaped += c;
    } else {
      escaped.append({'\\', found->letter});
    }
  }
  return escaped;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto found = text[i] != '\\' || i + 1 == text.size()
                           ? kEscapes.end()
                           : std::find_if(kEscapes.begin(), kEscapes.end(),
                                          [&](const Escape& e) { return e.letter == text[i + 1]; });
    if (found == kEscapes.end()) {
      plain += text[i];
    } else {
      plain += found->character;
      ++i;
    }
  }
  return plain;
}

std::vector<std::string> Pieces(std::string_view text, char end) {
  std::vector<std::string> pieces(1);
  for (const char c : text) {
    if (c == end) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

}  // namespace

// A line that is no value, as a person's editing may leave it, is passed over.
std::optional<std::vector<RegistryFile::Entry>> RegistryFile::Load() const {
  const auto [file, error] = files_->Open(path_, OpenAs::Read);
  if (error == ENOENT) return std::vector<Entry>();
  std::uint64_t length = 0;
  std::string text;
  if (error != 0 || file->Size(length) != 0 ||
      ReadAllAt(*file, 0, static_cast<std::size_t>(length), text) != 0)
    return std::nullopt;
  std::vector<Entry> entries;
  for (const std::string& line : Pieces(FromUtf8Lossy(text), '\n')) {
    const auto pieces = Pieces(line, '\t');
    if (pieces.size() != 4) continue;
    entries.push_back(
        {Unescaped(pieces[0]), Unescaped(pieces[1]), Unescaped(pieces[2]), Unescaped(pieces[3])});
  }
  return entries;
}

std::string RegistryFile::Read(std::string_view root, std::string_view key, std::string_view name) const {
  const auto entries = Load();
  if (!entries) return {};
  for (const Entry& entry : *entries) {
    if (EqualsIgnoringCase(entry.root, root) && EqualsIgnoringCase(entry.key, key) &&
        EqualsIgnoringCase(entry.name, name)) {
      return entry.value;
    }
  }
  return {};
}

bool RegistryFile::Write(std::string_view root, std::string_view key, std::string_view name,
                         std::string_view value) const {
  files_->MakeFolders(std::filesystem::path(path_).parent_path());
  // The file itself is replaced by each write, so the lock stands on a file beside it.
  const std::unique_ptr<StoredFile> lock = files_->Open(path_ + ".lock", OpenAs::Update).file;
  if (lock == nullptr) return false;
  int error = lock->TryLock();
  for (; error == EAGAIN; error = lock->TryLock()) lock->AwaitOthers();
  if (error != 0) return false;
  auto entries = Load();
  if (!entries) return false;
  std::erase_if(*entries, [&](const Entry& entry) {
    return EqualsIgnoringCase(entry.root, root) && EqualsIgnoringCase(entry.key, key) &&
           EqualsIgnoringCase(entry.name, name);
  });
  entries->push_back({std::string(root), std::string(key), std::string(name), std::string(value)});
  std::string text;
  for (const Entry& entry : *entries) {
    text += Escaped(entry.root) + '\t' + Escaped(entry.key) + '\t' + Escaped(entry.name) + '\t' +
            Escaped(entry.value) + '\n';
  }
  return files_->ReplacePrivately(path_, ToUtf8(text)) == 0;
}

std::string RegistryPath(const EnvironmentReader& environment) {
  return UserConfigurationFolder(environment) + "/tessera/registro";
}

}  // namespace tessera
