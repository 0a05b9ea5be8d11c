// The lock byte of a record file, and the lock of the system that makes each step of its protocol atomic
// among this system's own processes.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/binary_file.h"
#include "platform/host.h"

namespace tessera {

// Finds the file whose lock is waited for. Events run while one waits, and may close the file or open another
// one: the file is sought again after each wait, and the seeking's failure ends it.
using FileFinder = std::function<BinaryFile&()>;

// Exclusion among our own processes, by the lock of the file store. It ends with the object, and with the
// process. No event may run while it is held.
class FileLock {
 public:
  // Waits for the lock, letting events run meanwhile.
  FileLock(const FileFinder& find, EventDispatch& events);
  // The same for a file that nothing closes meanwhile.
  FileLock(BinaryFile& file, EventDispatch& events)
      : FileLock([&file]() -> BinaryFile& { return file; }, events) {}
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  BinaryFile& file() const { return *file_; }

 private:
  BinaryFile* file_;
};

// One step of the protocol: holds the file's lock with the lock byte found free. While another maker's
// program has the byte set, the wait lets events run and has no end. Failure 62 for a file that has lost its
// lock byte.
class HeaderStep {
 public:
  HeaderStep(const FileFinder& find, EventDispatch& events);
  HeaderStep(const HeaderStep&) = delete;
  HeaderStep& operator=(const HeaderStep&) = delete;

  BinaryFile& file() const { return lock_->file(); }

  // The record count that the header tells. Failures of a slot that does not decode.
  std::int32_t Count() const;

  // Sets the lock byte and writes the header's beginning back.
  void SetBusy();
  // Clears it again; with a new count the count's slot is rewritten on the way.
  void SetFree();
  void SetFree(std::int32_t newCount, Random& random);

 private:
  std::optional<FileLock> lock_;
  std::string area_;  // the header up to the holder's mark
};

// Clears a lock byte that was left set, with the holder's mark. False when it was free.
bool Unlock(BinaryFile& file, EventDispatch& events);

}  // namespace tessera
