// The look of `SpCombo`: the field with its arrow, and the list that opens under it.
#pragma once

#include "objects/combo.h"
#include "qt/looks/dropped_view.h"
#include "qt/looks/entry_look.h"

namespace tessera {

class ComboLook;

// The open list: whole rows from the first visible entry on, and a mark at the right where there are more.
class ListView final : public DroppedView {
 public:
  ListView(ComboLook& field, const ComboControl& combo, LookEntry entry);

  QSize FullSize(int width) const;
  // The row of a visible entry.
  QRectF EntryRect(std::ptrdiff_t entry) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  std::ptrdiff_t EntryAt(QPointF at) const;
  void PaintMark(QPainter& painter);

  const ComboControl& combo_;
  LookEntry entry_;
};

class ComboLook final : public EntryLook {
 public:
  ComboLook(ComboControl& control, LogicEntry& entry);

  void FollowControl() override;

 protected:
  bool HasButton() const override { return true; }
  void PaintButton(QPainter& painter, const QRectF& rect) override;
  void PressButton() override;

 private:
  ListView list_;
};

}  // namespace tessera
