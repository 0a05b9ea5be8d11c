// The part of the system that paints pages, loaded at a program's first report or print.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "reports/page_painter.h"

namespace tessera::reports {

class PaperPart {
 public:
  explicit PaperPart(std::vector<std::filesystem::path> folders) : folders_(std::move(folders)) {}

  // The painter, loaded at the first call; null where the part is missing.
  PagePainter* Painter();
  // Why there is none, as program text.
  const std::string& problem() const { return problem_; }

 private:
  std::vector<std::filesystem::path> folders_;
  PagePainter* painter_ = nullptr;
  std::string problem_;
};

}  // namespace tessera::reports
