#include "recorddb/header_lock.h"

#include <thread>

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/slots.h"

namespace tessera {

namespace {

constexpr int kQuickTries = 64;

}  // namespace

FileLock::FileLock(const FileFinder& find, EventDispatch& events) : file_(&find()) {
  for (int tries = 0; !file_->TryLock(); ++tries) {
    if (tries < kQuickTries) {
      std::this_thread::yield();
    } else {
      file_->AwaitOthers();
      events.ProcessEvents();
      file_ = &find();
    }
  }
}

FileLock::~FileLock() {
  file_->Unlock();
}

HeaderStep::HeaderStep(const FileFinder& find, EventDispatch& events) {
  for (;;) {
    lock_.emplace(find, events);
    area_ = file().Read(1, tsa::kLockAreaLength);
    if (area_.empty()) Fail(62);
    area_.resize(tsa::kLockAreaLength, tsa::kBlank);
    const bool abandoned = SlotOf(area_, tsa::kHolderMark)[0] == tsa::kHeld;
    if (area_[0] == tsa::kFree || abandoned) return;
    const BinaryFile& waited = file();
    lock_.reset();
    waited.AwaitOthers();
    events.ProcessEvents();
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
