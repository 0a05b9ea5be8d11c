#include "commands/package_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>

#include "platform/binary_file.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kRecord = 50;
constexpr std::size_t kNameWidth = 25;
constexpr std::size_t kSizeWidth = 10;
constexpr std::size_t kPositionWidth = 15;
constexpr std::size_t kDirectory = kPackageFiles * kRecord;
constexpr std::uint64_t kFirstData = kDirectory + 1;
constexpr std::size_t kPortion = std::size_t{1} << 18;

struct Record {
  std::uint64_t size;
  std::uint64_t position;
};

std::string Padded(std::string_view text, std::size_t width) {
  std::string field(Left(text, width));
  field.resize(width, ' ');
  return field;
}

std::uint64_t NumberIn(std::string_view field) {
  field = Trim(field);
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  if (error != std::errc() || end != field.data() + field.size()) FailType();
  return number;
}

// The 300 records; those that a short file lacks are free.
class Directory {
 public:
  Directory() : bytes_(kDirectory, ' ') {}
  explicit Directory(const BinaryFile& package) : bytes_(package.ReadBlankPadded(1, kDirectory)) {}

  // A record whose first byte is a blank ends the directory.
  bool Ends(std::size_t row) const { return row == kPackageFiles || bytes_[row * kRecord] == ' '; }

  std::string_view NameAt(std::size_t row) const { return Field(row, 0, kNameWidth); }
  Record At(std::size_t row) const {
    const Record record{NumberIn(Field(row, kNameWidth, kSizeWidth)),
                        NumberIn(Field(row, kNameWidth + kSizeWidth, kPositionWidth))};
    if (record.position < kFirstData) FailArgument();
    return record;
  }

  void Put(std::size_t row, std::string_view name, const Record& record) {
    const std::string size = std::to_string(record.size);
    if (size.size() > kSizeWidth) FailOverflow();
    bytes_.replace(row * kRecord, kRecord,
                   Padded(name, kNameWidth) + Padded(size, kSizeWidth) +
                       Padded(std::to_string(record.position), kPositionWidth));
  }

  const std::string& bytes() const { return bytes_; }

 private:
  std::string_view Field(std::size_t row, std::size_t offset, std::size_t width) const {
    return std::string_view(bytes_).substr(row * kRecord + offset, width);
  }

  std::string bytes_;
};

// Failure 62 where the source ends before `size` bytes.
void CopyBytes(const BinaryFile& source, std::uint64_t position, std::uint64_t size, BinaryFile& target,
               std::uint64_t targetPosition) {
  while (size > 0) {
    const std::string bytes =
        source.Read(position, static_cast<std::size_t>(std::min<std::uint64_t>(size, kPortion)));
    if (bytes.empty()) Fail(62);
    target.Write(targetPosition, bytes);
    position += bytes.size();
    targetPosition += bytes.size();
    size -= bytes.size();
  }
}

// An opening that makes no file.
std::unique_ptr<BinaryFile> OpenExisting(FileStore& files, const std::string& path) {
  if (!IsFile(files, path)) FailOpening(files, path, ENOENT);
  return BinaryFile::Open(files, path);
}

}  // namespace

bool InsertIntoPackage(FileStore& files, std::string_view name, const std::string& source,
                       const std::string& package) {
  const auto from = OpenExisting(files, source);
  const bool isNew = !IsFile(files, package);
  const auto to = BinaryFile::Open(files, package);
  Directory directory = isNew ? Directory() : Directory(*to);

  // The last file that the directory tells of.
  std::size_t row = 0;
  while (!directory.Ends(row)) ++row;
  if (row == kPackageFiles) return false;
  Record record{from->Size(), kFirstData};
  if (row > 0) {
    const Record last = directory.At(row - 1);
    // KEPT: one unused byte lies between two files (PackageFile.OneByteLiesBetweenTwoFiles).
    record.position = last.position + last.size + 1;
  }
  directory.Put(row, name, record);
  // The bytes come before the record that tells of them, so that a full disk loses no file of the package.
  if (isNew) to->Write(1, Directory().bytes());
  CopyBytes(*from, 1, record.size, *to, record.position);
  to->Write(1, directory.bytes());
  return true;
}

bool ExtractFromPackage(FileStore& files, std::string_view name, const std::string& target,
                        const std::string& package) {
  RemoveFile(files, target);
  if (!IsFile(files, package)) return false;
  const auto from = BinaryFile::Open(files, package);
  const Directory directory(*from);
  const std::string sought = Upper(name);
  for (std::size_t row = 0; row < kPackageFiles; ++row) {
    if (Upper(Trim(directory.NameAt(row))) != sought) continue;
    const Record record = directory.At(row);
    const auto to = BinaryFile::Open(files, target);
    const auto failure = Guard([&] { CopyBytes(*from, record.position, record.size, *to, 1); });
    if (!failure) return true;
    RemoveFile(files, target);
    throw RunFailure(*failure);
  }
  return false;
}

}  // namespace tessera
