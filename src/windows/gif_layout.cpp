#include "windows/gif_layout.h"

#include <cstddef>

namespace tessera {

namespace {

constexpr std::size_t kHeader = 13;
constexpr std::size_t kDescriptor = 10;
constexpr char kExtension = '!';
constexpr char kFrame = ',';

class GifBlocks {
 public:
  explicit GifBlocks(std::string_view bytes)
      : bytes_(bytes), at_(kHeader + TableLength(ByteAt(kHeader - 3))) {}

  std::uint64_t ScreenPixels() const { return WordAt(6) * WordAt(8); }

  // Behind the blocks that were passed; beyond the bytes where the last one is cut.
  std::size_t Place() const { return at_; }

  // Goes to the next frame; its pixels, or 0 at the end of the file.
  std::uint64_t NextFrame() {
    while (ByteAt(at_) == kExtension) {
      at_ += 2;
      SkipData();
    }
    if (ByteAt(at_) != kFrame) return 0;
    const std::uint64_t pixels = WordAt(at_ + 5) * WordAt(at_ + 7);
    // Behind the descriptor and its colours one byte tells the size of the codes.
    at_ += kDescriptor + TableLength(ByteAt(at_ + kDescriptor - 1)) + 1;
    SkipData();
    return pixels;
  }

 private:
  std::uint64_t ByteAt(std::size_t at) const {
    return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
  }
  std::uint64_t WordAt(std::size_t at) const { return ByteAt(at) | ByteAt(at + 1) << 8; }

  static std::size_t TableLength(std::uint64_t flags) {
    return (flags & 0x80) == 0 ? 0 : std::size_t{3} << ((flags & 7) + 1);
  }

  // Blocks, each behind its length, up to an empty one.
  void SkipData() {
    while (ByteAt(at_) != 0) at_ += static_cast<std::size_t>(ByteAt(at_)) + 1;
    ++at_;
  }

  std::string_view bytes_;
  std::size_t at_;
};

}  // namespace

GifLayout ReadGifLayout(std::string_view bytes) {
  GifBlocks blocks(bytes);
  GifLayout layout{.screenPixels = blocks.ScreenPixels()};
  while (const std::uint64_t pixels = blocks.NextFrame()) {
    if (blocks.Place() > bytes.size()) break;
    layout.end = blocks.Place();
    ++layout.frames;
    layout.framePixels += pixels;
  }
  return layout;
}

std::uint64_t FirstGifFrame(std::string_view bytes) {
  return GifBlocks(bytes).NextFrame();
}

}  // namespace tessera
