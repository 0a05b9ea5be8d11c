#include "platform/binary_file.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include "platform/failure.h"

namespace tessera {

void FailSystem(int error) {
  switch (error) {
    case ENOENT:
      Fail(53);
    case ENOTDIR:
      Fail(76);
    case EEXIST:
      Fail(58);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      Fail(61);
    case EMFILE:
    case ENFILE:
      Fail(67);
    case EACCES:
    case EPERM:
    case EROFS:
      Fail(70);
    case EBADF:
      Fail(52);
    case EINVAL:
      FailArgument();
    default:
      Fail(75);
  }
}

namespace {

constexpr auto kLastOffset = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());

void Check(int error) {
  if (error != 0) FailSystem(error);
}

}  // namespace

std::unique_ptr<BinaryFile> BinaryFile::Open(FileStore& files, const std::string& path) {
  auto [file, error] = files.Open(path, OpenAs::Update);
  // A name in a folder that is not there: the path is missing, not the file.
  Check(error == ENOENT ? ENOTDIR : error);
  return std::unique_ptr<BinaryFile>(new BinaryFile(std::move(file)));
}

std::unique_ptr<BinaryFile> BinaryFile::Create(FileStore& files, const std::string& path) {
  auto [file, error] = files.Open(path, OpenAs::New);
  Check(error);
  return std::unique_ptr<BinaryFile>(new BinaryFile(std::move(file)));
}

// A length that a program made up must not cost more memory than the file has bytes.
std::size_t BinaryFile::ReadableLength(std::uint64_t position, std::size_t length) const {
  constexpr std::size_t kHarmless = std::size_t{1} << 16;
  if (length <= kHarmless) return length;
  const std::uint64_t size = Size();
  const std::uint64_t left = position > size ? 0 : size - (position - 1);
  return static_cast<std::size_t>(std::min<std::uint64_t>(length, left));
}

std::string BinaryFile::Read(std::uint64_t position, std::size_t length) const {
  if (position == 0 || position > kLastOffset) FailArgument();
  std::string bytes;
  if (firstPage_ != nullptr && firstPage_->Read(position - 1, length, bytes)) return bytes;
  Check(ReadAllAt(*file_, position - 1, ReadableLength(position, length), bytes));
  return bytes;
}

std::string BinaryFile::ReadBlankPadded(std::uint64_t position, std::size_t length) const {
  std::string bytes = Read(position, length);
  bytes.resize(length, ' ');
  return bytes;
}

void BinaryFile::Write(std::uint64_t position, std::string_view bytes) {
  if (position == 0 || position > kLastOffset) FailArgument();
  const int error = file_->WriteAt(position - 1, bytes);
  Check(error == EBADF ? EACCES : error);
}

bool BinaryFile::Put(std::uint64_t position, char byte) {
  return firstPage_ != nullptr && firstPage_->Put(position - 1, byte);
}

bool BinaryFile::Put(std::uint64_t position, const SharedPage::Unit& unit) {
  return firstPage_ != nullptr && firstPage_->Put(position - 1, unit);
}

std::uint64_t BinaryFile::Size() const {
  std::uint64_t size = 0;
  Check(file_->Size(size));
  return size;
}

void BinaryFile::Resize(std::uint64_t size) {
  Check(file_->Resize(size));
}

void BinaryFile::Sync() {
  Check(file_->Sync());
}

bool BinaryFile::TryLock() {
  const int error = file_->TryLock();
  if (error != EAGAIN) Check(error);
  return error == 0;
}

int FileNumbers::Free() const {
  for (int number = kFirst; number <= kLast; ++number) {
    if (!files_.contains(number)) return number;
  }
  Fail(67);
}

void FileNumbers::Put(int number, std::unique_ptr<OpenedFile> file) {
  if (number < kFirst || number > kLast) Fail(52);
  if (files_.contains(number)) Fail(55);
  files_.emplace(number, std::move(file));
}

std::optional<RunFailure> FileNumbers::FlushAll() {
  std::optional<RunFailure> failure;
  for (const auto& entry : files_) {
    if (const auto refused = Guard([&] { entry.second->Flush(); })) failure = refused;
  }
  return failure;
}

OpenedFile& FileNumbers::Find(int number) const {
  const auto found = files_.find(number);
  if (found == files_.end()) Fail(52);
  return *found->second;
}

void FileNumbers::FailMode() {
  Fail(54);
}

}  // namespace tessera
