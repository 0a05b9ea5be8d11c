#include "reports/paper_part.h"

#include "platform/part_library.h"

namespace tessera::reports {

PagePainterFinder PainterOfPart(std::vector<std::filesystem::path> folders) {
  return [folders = std::move(folders)]() -> FoundPainter {
    PartEntry part = LoadPart(folders, "paper", kPainterEntry, "libqt6gui6");
    if (part.entry == nullptr) return {.problem = std::move(part.problem)};
    return {.painter = reinterpret_cast<PainterEntry>(part.entry)()};
  };
}

PagePainter* PaperPart::Painter() {
  if (find_) found_ = std::exchange(find_, nullptr)();
  return found_.painter;
}

}  // namespace tessera::reports
