#include "controls/text_pool.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tessera {
namespace {

constexpr std::size_t kFirstBlock = 1024;
constexpr std::size_t kLargestBlock = 256 * 1024;
using Length = std::uint32_t;

}  // namespace

TextPool::Ref TextPool::Store(std::string_view text) {
  if (text.empty()) return nullptr;
  const std::size_t needed = sizeof(Length) + text.size();
  if (needed > room_) {
    // Blocks double, so that a small list stays small.
    room_ = std::max(needed, std::clamp(used_, kFirstBlock, kLargestBlock));
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(room_));
    next_ = blocks_.back().get();
  }
  char* const ref = next_;
  const auto length = static_cast<Length>(text.size());
  std::memcpy(ref, &length, sizeof length);
  std::memcpy(ref + sizeof length, text.data(), text.size());
  next_ += needed;
  room_ -= needed;
  used_ += needed;
  return ref;
}

std::string_view TextPool::Text(Ref ref) {
  if (ref == nullptr) return {};
  Length length;
  std::memcpy(&length, ref, sizeof length);
  return {ref + sizeof length, length};
}

void TextPool::Drop(Ref ref) {
  if (ref != nullptr) unused_ += sizeof(Length) + Text(ref).size();
}

}  // namespace tessera
