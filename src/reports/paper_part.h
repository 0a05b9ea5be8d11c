// Who paints pages and measures their texts: a part of the system, loaded at a program's first report or
// print.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "reports/page_painter.h"

namespace tessera::reports {

struct FoundPainter {
  PagePainter* painter = nullptr;
  std::string problem = {};  // why there is none, as program text
};

// Asked at the first need.
using PagePainterFinder = std::function<FoundPainter()>;

// That of the part in the first of `folders` that has it.
PagePainterFinder PainterOfPart(std::vector<std::filesystem::path> folders);

class PaperPart {
 public:
  explicit PaperPart(PagePainterFinder find) : find_(std::move(find)) {}

  // The painter, sought at the first call; null where there is none.
  PagePainter* Painter();
  // Why there is none, as program text.
  const std::string& problem() const { return found_.problem; }

 private:
  PagePainterFinder find_;  // none once it was asked
  FoundPainter found_;
};

}  // namespace tessera::reports
