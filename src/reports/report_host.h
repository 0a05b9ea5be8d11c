// What a host makes of reports and prints beside the windows that it shows.
#pragma once

#include <string_view>

namespace tessera::reports {

class ReportHost {
 public:
  virtual ~ReportHost() = default;
  // The preview shows a page, under that label.
  virtual void TellPage(std::string_view /*label*/) {}
  // A document of so many pages went to a queue or a file, by the name that whoever chose it gave.
  virtual void TellPrinted(std::string_view /*destination*/, int /*pages*/) {}
};

}  // namespace tessera::reports
