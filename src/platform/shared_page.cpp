#include "platform/shared_page.h"

#include <linux/magic.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstring>

namespace tessera {

// A page in memory, where the signal that it has gone finds it.
struct MappedPage {
  std::atomic<char*> bytes = nullptr;
  std::atomic<bool> lost = false;
};

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kMost = 64;
std::array<MappedPage, kMost> pages;

// Sixteen bytes that the processor stores with one instruction.
using Vector = char __attribute__((vector_size(sizeof(SharedPage::Unit)), aligned(1), may_alias));

// The system's signal for memory that its file no longer fills. A page of zeros takes the lost one's place,
// and the instruction goes on; for any other memory the process ends as it would have.
void OnBusError(int number, siginfo_t* fault, void*) {
  const auto at = reinterpret_cast<std::uintptr_t>(fault->si_addr);
  for (MappedPage& page : pages) {
    const auto begin = reinterpret_cast<std::uintptr_t>(page.bytes.load());
    if (begin == 0 || at < begin || at >= begin + kPage) continue;
    page.lost = true;
    constexpr int kZeros = MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED;
    if (mmap(page.bytes, kPage, PROT_READ | PROT_WRITE, kZeros, -1, 0) != MAP_FAILED) return;
  }
  signal(number, SIG_DFL);
}

void WatchBusErrors() {
  struct sigaction action {};
  action.sa_sigaction = OnBusError;
  action.sa_flags = SA_SIGINFO;
  sigaction(SIGBUS, &action, nullptr);
}

// Where all who have a file open have it from the same memory.
bool IsLocal(int descriptor) {
  struct statfs system {};
  if (fstatfs(descriptor, &system) != 0) return false;
  constexpr std::array<std::uint32_t, 6> kLocal = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                                   F2FS_SUPER_MAGIC, TMPFS_MAGIC,     OVERLAYFS_SUPER_MAGIC};
  return std::ranges::find(kLocal, static_cast<std::uint32_t>(system.f_type)) != kLocal.end();
}

}  // namespace

std::unique_ptr<SharedPage> SharedPage::Of(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  if (status.st_size < static_cast<off_t>(kPage) || !IsLocal(descriptor)) return nullptr;
  const auto free = std::ranges::find_if(pages, [](const MappedPage& page) { return page.bytes == nullptr; });
  if (free == pages.end()) return nullptr;
  void* const bytes = mmap(nullptr, kPage, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  if (bytes == MAP_FAILED) return nullptr;
  [[maybe_unused]] static const bool watched = (WatchBusErrors(), true);
  free->lost = false;
  free->bytes = static_cast<char*>(bytes);
  return std::unique_ptr<SharedPage>(new SharedPage(*free));
}

SharedPage::~SharedPage() {
  munmap(mapped_.bytes.exchange(nullptr), kPage);
}

// The system fills a page behind the end of its file with zeros. A last byte that is one says that the file
// may have been cut within the page; what it holds by right is then read and written in the other way.
bool SharedPage::Holds(std::size_t offset, std::size_t length) const {
  std::atomic_thread_fence(std::memory_order_seq_cst);
  const volatile char* const bytes = mapped_.bytes.load();
  return offset + length <= kPage && bytes[kPage - 1] != 0 && !mapped_.lost;
}

bool SharedPage::Read(std::size_t offset, std::size_t length, std::string& bytes) const {
  if (!Holds(offset, length)) return false;
  const std::size_t before = bytes.size();
  bytes.append(mapped_.bytes + offset, length);
  if (Holds(offset, length)) return true;
  bytes.resize(before);
  return false;
}

bool SharedPage::Put(std::size_t offset, char byte) {
  if (!Holds(offset, 1)) return false;
  *static_cast<volatile char*>(mapped_.bytes + offset) = byte;
  return Holds(offset, 1);
}

bool SharedPage::Put(std::size_t offset, const Unit& unit) {
  if (!Holds(offset, unit.size())) return false;
  Vector vector;
  std::memcpy(&vector, unit.data(), unit.size());
  *reinterpret_cast<volatile Vector*>(mapped_.bytes + offset) = vector;
  return Holds(offset, unit.size());
}

}  // namespace tessera
