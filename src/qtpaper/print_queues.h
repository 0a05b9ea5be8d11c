// The queues of CUPS.
#pragma once

#include "reports/page_painter.h"

namespace tessera::qtpaper {

class CupsQueues final : public reports::PrintQueues {
 public:
  std::vector<std::string> Names() override;
  std::string Default() override;
  bool Send(const std::string& queue, const std::string& title, std::string_view pdf) override;
};

}  // namespace tessera::qtpaper
