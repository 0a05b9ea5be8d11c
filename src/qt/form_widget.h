// The widget of a window: what a person does with it enters the logic here, or is told as lines of a script.
#pragma once

#include <QWidget>

#include "qt/form.h"
#include "qt/looks/look.h"
#include "qt/surface_pane.h"

namespace tessera {

class FormWidget final : public QWidget {
 public:
  FormWidget(QtForm& form, const QString& objectName);

  // A finer screen's own picture is there before anything is printed.
  void FitSurface();
  SurfacePane& pane() { return pane_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  // The logic knows the Tab order.
  bool focusNextPrevChild(bool) override { return false; }
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  // An act of a person enters, or is told as the lines of a script.
  template <typename Act, typename Lines>
  void Do(Act act, Lines lines) {
    LogicEntry& entry = form_.around_.entry;
    if (!entry.TellsActs()) return entry.Enter(std::move(act));
    for (std::string& line : ActLines(lines())) entry.TellAct({.line = std::move(line), .window = &form_});
  }

  QtForm& form_;
  SurfacePane pane_;
  bool isDoubleClick_ = false;  // until the second release
};

}  // namespace tessera
