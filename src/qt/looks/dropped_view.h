// What an entry drops down: a little window below it, which closes when the person turns elsewhere. The
// keyboard stays with the entry.
#pragma once

#include <QPoint>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "windows/act_line.h"
#include "windows/control.h"

namespace tessera {

// The line of a script for the button that shows and hides what an entry drops down.
inline std::string DropLine(const Control& entry) {
  return ActLine({"abre", entry.Name()});
}

class DroppedView : public QWidget {
 public:
  // `closed` is called when the person has closed the view by turning elsewhere.
  DroppedView(QWidget& entry, std::function<void()> closed);

  // Shows the view in that size below the entry, or above where there is no room, or hides it.
  void Open(QSize size);
  void Close();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget& entry_;
  std::function<void()> closed_;
  bool closesByItself_ = true;
  std::optional<QPoint> pointer_;  // on the screen, as it was last felt
};

}  // namespace tessera
