#include "reports/picture_shelf.h"

#include <utility>

#include "commands/resolve_file.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "windows/picture_file.h"

namespace tessera::reports {

namespace {

constexpr long kNoFile = 53;
constexpr long kNoPicture = 481;
// A page has a logo or two; a catalogue of photographs shall not be held as a whole.
constexpr std::size_t kMostKept = 16;

}  // namespace

PictureRef PictureShelf::Load(std::string_view path) {
  const std::string resolved = ResolveFile(run_, path);
  if (resolved.empty()) Fail(kNoFile);
  const std::string systemPath = run_.paths.SystemPath(resolved);
  const auto [file, error] = run_.host.files.Open(systemPath, OpenAs::Read);
  if (error != 0) FailOpening(run_.host.files, systemPath, error);
  std::uint64_t length = 0;
  std::string bytes;
  if (file->Size(length) != 0 || length > kLargestPictureFile) Fail(kNoPicture);
  if (ReadAllAt(*file, 0, static_cast<std::size_t>(length), bytes) != 0) Fail(kNoPicture);
  PictureCodec* const codec = pictures_.Codec();
  if (codec == nullptr) Fail(kNoPicture);
  if (kept_.size() >= kMostKept && !kept_.contains(systemPath)) kept_.clear();
  Kept& kept = kept_[systemPath];
  if (kept.picture == nullptr || kept.bytes != bytes) {
    kept = {.bytes = std::move(bytes), .picture = nullptr};
    kept.picture = DecodePicture(*codec, kept.bytes);
  }
  if (kept.picture == nullptr) Fail(kNoPicture);
  return kept.picture;
}

}  // namespace tessera::reports
