// The stage with windows: an event script leads them, on a display or offscreen.
#pragma once

#include <QObject>

#include "windows/stage.h"

namespace tessera {

class QtHost;

class QtStage final : public Stage, private QObject {
 public:
  // By a script that is there already, or by one that a person writes at these windows.
  enum class Led { ByScript, ByPerson };

  // The host outlives it.
  explicit QtStage(QtHost& host, Led by = Led::ByScript);

  std::unique_ptr<Form> NewForm(std::string_view name, const Placement& place, FormEvents& events,
                                StageLead& lead) override;
  void ResizeByPerson(Form& form, double width, double height) override;
  // The widget as it paints itself, in the pixels of its screen.
  Raster Portrait(Form& form) override;
  void ShowChanges() override;

 private:
  // Keeps pointer, keys and the frame's buttons from the windows.
  bool eventFilter(QObject* receiver, QEvent* event) override;

  QtHost& host_;
};

}  // namespace tessera
