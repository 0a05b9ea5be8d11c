#include "recorddb/header_lock.h"

#include <fcntl.h>

#include <cerrno>
#include <thread>

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/slots.h"

namespace tessera {

namespace {

// Far past the largest file of the format (999,999 records of 32,767 bytes).
constexpr off_t kLockOffset = off_t{1} << 62;
constexpr int kQuickTries = 64;
constexpr std::chrono::microseconds kPause{200};

struct flock OneByte(short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockOffset;
  lock.l_len = 1;
  return lock;
}

bool TryLock(int descriptor) {
  struct flock lock = OneByte(F_WRLCK);
  if (fcntl(descriptor, F_OFD_SETLK, &lock) == 0) return true;
  if (errno == EAGAIN || errno == EACCES || errno == EINTR) return false;
  // A file opened for reading alone takes the shared form: it keeps writers out all the same.
  lock = OneByte(F_RDLCK);
  if (fcntl(descriptor, F_OFD_SETLK, &lock) == 0) return true;
  if (errno == EAGAIN || errno == EACCES || errno == EINTR) return false;
  FailSystem(errno);
}

}  // namespace

FileLock::FileLock(const FileFinder& find, EventDispatch& events) : file_(&find()) {
  for (int tries = 0; !TryLock(file_->descriptor()); ++tries) {
    if (tries < kQuickTries) {
      std::this_thread::yield();
    } else {
      events.ProcessEvents();
      std::this_thread::sleep_for(kPause);
      file_ = &find();
    }
  }
}

FileLock::~FileLock() {
  struct flock lock = OneByte(F_UNLCK);
  fcntl(file_->descriptor(), F_OFD_SETLK, &lock);
}

HeaderStep::HeaderStep(const FileFinder& find, EventDispatch& events) {
  for (;;) {
    lock_.emplace(find, events);
    if (file().Size() == 0) Fail(62);
    area_ = file().ReadBlankPadded(1, tsa::kLockAreaLength);
    const bool abandoned = SlotOf(area_, tsa::kHolderMark)[0] == tsa::kHeld;
    if (area_[0] == tsa::kFree || abandoned) return;
    lock_.reset();
    events.ProcessEvents();
    std::this_thread::sleep_for(kPause);
  }
}

std::int32_t HeaderStep::Count() const {
  return DecodeDigits(SlotOf(area_, tsa::kCount));
}

void HeaderStep::SetBusy() {
  SlotWrite(area_, tsa::kLockByte, {&tsa::kBusy, 1});
  SlotWrite(area_, tsa::kHolderMark, {&tsa::kHeld, 1});
  file().Write(1, area_);
}

void HeaderStep::SetFree() {
  SlotWrite(area_, tsa::kLockByte, {&tsa::kFree, 1});
  SlotWrite(area_, tsa::kHolderMark, {&tsa::kBlank, 1});
  file().Write(1, area_);
}

void HeaderStep::SetFree(std::int32_t newCount, Random& random) {
  SlotWrite(area_, tsa::kCount, EncodeText(std::to_string(newCount), random));
  SetFree();
}

bool Unlock(BinaryFile& file, EventDispatch& events) {
  const FileLock lock(file, events);
  const bool busy = file.ReadBlankPadded(tsa::kLockByte.position, 1)[0] != tsa::kFree;
  file.Write(tsa::kLockByte.position, {&tsa::kFree, 1});
  file.Write(tsa::kHolderMark.position, {&tsa::kBlank, 1});
  return busy;
}

}  // namespace tessera
