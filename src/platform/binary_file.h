// Files that a running program has open: each under a number, read and written at byte positions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "platform/failure.h"
#include "platform/file_store.h"
#include "platform/shared_page.h"

namespace tessera {

// Fails with the run-time failure that stands for a system error number (errno).
[[noreturn]] void FailSystem(int error);

// Anything that stands behind a file number; closing it is its destruction.
class OpenedFile {
 public:
  virtual ~OpenedFile() = default;
  // Hands the system what was written and is still held back. Failures of a disk.
  virtual void Flush() {}
};

// A file opened for reading and writing at positions, shared with every other process. Positions count bytes
// from 1. Paths are the system's own, in UTF-8.
class BinaryFile final : public OpenedFile {
 public:
  // Opens the file, and creates it when there is none. Where writing is forbidden it is opened for reading.
  static std::unique_ptr<BinaryFile> Open(FileStore& files, const std::string& path);
  // Makes the file; failure 58 where that name is taken, by a link that leads nowhere as well.
  static std::unique_ptr<BinaryFile> Create(FileStore& files, const std::string& path);

  // The bytes from `position` on; fewer, or none, where the file ends before.
  std::string Read(std::uint64_t position, std::size_t length) const;
  // The same, with a blank for every byte behind the file's end.
  std::string ReadBlankPadded(std::uint64_t position, std::size_t length) const;
  void Write(std::uint64_t position, std::string_view bytes);

  // From now on what lies in the file's first page is read from memory, and can be put there, where
  // the store has such a page of the file.
  void KeepFirstPage() { firstPage_ = file_->FirstPage(); }
  // Puts a byte, or some that belong together, into the page, behind all that was put before. False where
  // there is none: the caller then writes.
  bool Put(std::uint64_t position, char byte);
  bool Put(std::uint64_t position, const SharedPage::Unit& unit);

  std::uint64_t Size() const;
  void Resize(std::uint64_t size);
  // Returns when what was written has reached the disk.
  void Sync();

  // The lock that excludes others who open the file anew; false where somebody has it.
  bool TryLock();
  void Unlock() { file_->Unlock(); }
  // Rests a moment, in which another process may let the lock go.
  void AwaitOthers() const { file_->AwaitOthers(); }

  // Whether the path leads to this file.
  bool IsAt(const std::string& path) const { return file_->IsAt(path); }

 private:
  std::size_t ReadableLength(std::uint64_t position, std::size_t length) const;

  explicit BinaryFile(std::unique_ptr<StoredFile> file) : file_(std::move(file)) {}

  std::unique_ptr<StoredFile> file_;
  SharedPage* firstPage_ = nullptr;  // of the file
};

// The numbers under which a program's files are open, shared by all commands that open files.
class FileNumbers {
 public:
  static constexpr int kFirst = 1;
  static constexpr int kLast = 511;

  // The lowest number that stands for no open file; failure 67 when there is none.
  int Free() const;

  // Puts a file under a number that is free (failure 55 otherwise; 52 for a number out of range).
  void Put(int number, std::unique_ptr<OpenedFile> file);

  // The file of a number; failure 52 when none is open there, 54 when it is of another kind.
  template <typename File>
  File& Get(int number) const {
    OpenedFile& file = Find(number);
    if (typeid(file) != typeid(File)) FailMode();
    return static_cast<File&>(file);
  }

  // True if some open file of a kind fulfils the predicate.
  template <typename File, typename Predicate>
  bool AnyOf(Predicate predicate) const {
    for (const auto& [number, file] : files_) {
      const auto* kind = dynamic_cast<const File*>(file.get());
      if (kind != nullptr && predicate(*kind)) return true;
    }
    return false;
  }

  // Flushes all files; the failure of one that refuses, which keeps what it holds.
  std::optional<RunFailure> FlushAll();

  // Closes one number, or all of them; a number that is not open is passed over.
  void Close(int number) { files_.erase(number); }
  void CloseAll() { files_.clear(); }

 private:
  OpenedFile& Find(int number) const;
  [[noreturn]] static void FailMode();

  std::map<int, std::unique_ptr<OpenedFile>> files_;
};

}  // namespace tessera
