// The stage without a screen: windows in memory. What is printed on them goes to their lead, and is painted
// where somebody takes a look.
#pragma once

#include "windows/stage.h"
#include "windows/text_painter.h"

namespace tessera {

class MemoryStage final : public Stage {
 public:
  // The painter outlives it.
  explicit MemoryStage(TextPainter& texts) : texts_(texts) {}

  std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place, FormEvents& events,
                                StageLead& lead) override;
  void ResizeByPerson(Form& form, double width, double height) override;
  Raster Portrait(Form& form) override;

 private:
  TextPainter& texts_;
};

}  // namespace tessera
