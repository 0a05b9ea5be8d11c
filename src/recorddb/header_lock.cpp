#include "recorddb/header_lock.h"

#include <algorithm>
#include <thread>

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/slots.h"

namespace tessera {

namespace {

constexpr int kQuickTries = 64;

// The first bytes of the header: the lock byte and the count are among them.
SharedPage::Unit FrontOf(const std::string& area) {
  SharedPage::Unit front;
  static_assert(tsa::kCount.position + tsa::kCount.width <= front.size());
  std::copy_n(area.begin(), front.size(), front.begin());
  return front;
}

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

// FAST: where the file's first page is kept in memory, lock byte and count are put there at once, and the
// mark stands as long as the lock byte does.
void HeaderStep::SetBusy() {
  SlotWrite(area_, tsa::kLockByte, {&tsa::kBusy, 1});
  SlotWrite(area_, tsa::kHolderMark, {&tsa::kHeld, 1});
  const bool isPut = file().Put(tsa::kHolderMark.position, tsa::kHeld) && file().Put(1, FrontOf(area_));
  if (!isPut) file().Write(1, area_);
}

void HeaderStep::SetFree() {
  SlotWrite(area_, tsa::kLockByte, {&tsa::kFree, 1});
  SlotWrite(area_, tsa::kHolderMark, {&tsa::kBlank, 1});
  const bool isPut = file().Put(1, FrontOf(area_)) && file().Put(tsa::kHolderMark.position, tsa::kBlank);
  if (!isPut) file().Write(1, area_);
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
