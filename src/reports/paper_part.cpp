#include "reports/paper_part.h"

#include "platform/part_library.h"

namespace tessera::reports {

PagePainter* PaperPart::Painter() {
  if (painter_ == nullptr && problem_.empty()) {
    PartEntry part = LoadPart(folders_, "paper", kPainterEntry, "libqt6gui6");
    problem_ = std::move(part.problem);
    if (part.entry != nullptr) painter_ = reinterpret_cast<PainterEntry>(part.entry)();
  }
  return painter_;
}

}  // namespace tessera::reports
