// The look of `Calendario`: the date field with its button, and the month view that it drops down.
#pragma once

#include <optional>

#include "objects/calendario.h"
#include "qt/looks/dropped_view.h"
#include "qt/looks/entry_look.h"

namespace tessera {

class CalendarioLook;

// The open month view: two buttons around the month's name, the days of the week, six weeks of days.
class MonthView final : public DroppedView {
 public:
  MonthView(CalendarioLook& field, const Calendario& calendar, const LookEntry& entry);

  static QSize FullSize();
  // Where a day of the view stands, from 0.
  QRectF DayRect(std::size_t day) const;
  QRectF PreviousRect() const;
  QRectF NextRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  std::optional<std::size_t> DayAt(QPointF at) const;
  void PaintTitle(QPainter& painter);
  void PaintDay(QPainter& painter, std::size_t place, const Calendario::Day& day);

  const Calendario& calendar_;
  LookEntry entry_;
  std::optional<std::size_t> hovered_;
};

class CalendarioLook final : public EntryLook {
 public:
  CalendarioLook(CalendarioControl& control, LogicEntry& entry);

  void FollowControl() override;

 protected:
  bool HasButton() const override { return true; }
  void PaintButton(QPainter& painter, const QRectF& rect) override;
  void PressButton() override;

 private:
  MonthView view_;
};

}  // namespace tessera
