// The look of `NovoBox`: titles, the cells of its page, the cell that is edited, and the two bars.
#pragma once

#include <QTimer>

#include "objects/box_control.h"
#include "qt/looks/text_look.h"

namespace tessera {

class BoxLook final : public PaintedLook<BoxControl>, private ClipboardUser {
 public:
  BoxLook(BoxControl& control, LogicEntry& entry);

  void FollowControl() override;
  bool TakeShortcut(const QKeyEvent& event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void SelectAll() override;
  std::string Selected() const override;
  void DeleteSelected() override;
  void Paste(const std::string& text) override;

  void PaintTitles(QPainter& painter);
  void PaintCells(QPainter& painter);
  void PaintEditor(QPainter& painter);
  void PaintBars(QPainter& painter);

  QTimer timer_;  // ticks while a bar is held
  int wheel_ = 0;
};

}  // namespace tessera
