#include "qt/looks/calendario_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <array>

#include "controls/key_code.h"
#include "qt/looks/skin.h"
#include "text/date.h"

namespace tessera {

namespace {

constexpr int kDayWidth = 30;
constexpr int kDayHeight = 22;
constexpr int kTitleHeight = 28;
constexpr int kEdgeWidth = 6;

const std::array<QString, 12>& MonthNames() {
  static const std::array<QString, 12> names = {"janeiro", "fevereiro", QStringLiteral("março"),
                                                "abril",   "maio",      "junho",
                                                "julho",   "agosto",    "setembro",
                                                "outubro", "novembro",  "dezembro"};
  return names;
}

const std::array<QString, 7>& WeekdayNames() {
  static const std::array<QString, 7> names = {
      "dom", "seg", "ter", "qua", "qui", "sex", QStringLiteral("sáb")};
  return names;
}

CalendarioControl& ControlOf(Control& control) {
  return static_cast<CalendarioControl&>(control);
}

}  // namespace

// The month view

MonthView::MonthView(CalendarioLook& field, const Calendario& calendar, const LookEntry& entry)
    : DroppedView(field,
                  [entry] {
                    entry.Tell(
                        [](Control& control) {
                          if (ControlOf(control).State().ViewIsOpen()) ControlOf(control).ButtonClick();
                        },
                        DropLine);
                  }),
      calendar_(calendar),
      entry_(entry) {}

QSize MonthView::FullSize() {
  constexpr int kRows = static_cast<int>(Calendario::kWeeks) + 1;
  constexpr int kColumns = static_cast<int>(Calendario::kDaysOfWeek);
  return {kColumns * kDayWidth + 2 * kEdgeWidth, kTitleHeight + kRows * kDayHeight + kEdgeWidth};
}

QRectF MonthView::DayRect(std::size_t day) const {
  const std::size_t row = day / Calendario::kDaysOfWeek;
  const auto column = static_cast<double>(day % Calendario::kDaysOfWeek);
  return {kEdgeWidth + column * kDayWidth, kTitleHeight + static_cast<double>(row + 1) * kDayHeight,
          kDayWidth, kDayHeight};
}

QRectF MonthView::PreviousRect() const {
  return {kEdgeWidth, 3, kTitleHeight - 6, kTitleHeight - 6};
}

QRectF MonthView::NextRect() const {
  return PreviousRect().translated(width() - 2 * kEdgeWidth - PreviousRect().width(), 0);
}

std::optional<std::size_t> MonthView::DayAt(QPointF at) const {
  for (std::size_t day = 0; day < Calendario::kWeeks * Calendario::kDaysOfWeek; ++day) {
    if (DayRect(day).contains(at)) return day;
  }
  return std::nullopt;
}

void MonthView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setPen(QColor(skin::kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const auto days = calendar_.View();
  for (std::size_t place = 0; place < days.size(); ++place) PaintDay(painter, place, days[place]);
  PaintTitle(painter);
}

void MonthView::PaintTitle(QPainter& painter) {
  painter.setPen(QColor(skin::kTextDisabled));
  for (std::size_t column = 0; column < Calendario::kDaysOfWeek; ++column) {
    painter.drawText(DayRect(column).translated(0, -kDayHeight), Qt::AlignCenter, WeekdayNames()[column]);
  }
  const std::chrono::year_month_day marked = calendar_.Marked();
  const QString month = MonthNames()[static_cast<unsigned>(marked.month()) - 1];
  painter.setPen(Qt::black);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.drawText(QRectF(0, 0, width(), kTitleHeight), Qt::AlignCenter,
                   QStringLiteral("%1 de %2").arg(month).arg(static_cast<int>(marked.year())));
  skin::PaintArrow(painter, PreviousRect(), skin::Direction::Left, QColor(skin::kAccent));
  skin::PaintArrow(painter, NextRect(), skin::Direction::Right, QColor(skin::kAccent));
}

void MonthView::PaintDay(QPainter& painter, std::size_t place, const Calendario::Day& day) {
  const QRectF area = DayRect(place).adjusted(1, 1, -1, -1);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  if (day.marked || hovered_ == place) {
    painter.setBrush(QColor(day.marked ? skin::kAccent : skin::kAccentLight));
    painter.drawRoundedRect(area, skin::kRound, skin::kRound);
  }
  painter.setPen(day.marked ? QColor(Qt::white) : QColor(day.inMonth ? 0xFF000000 : skin::kTextDisabled));
  painter.drawText(area, Qt::AlignCenter, QString::number(static_cast<unsigned>(day.date.day())));
}

void MonthView::mousePressEvent(QMouseEvent* event) {
  // A press outside is that of a person turning elsewhere.
  if (!rect().contains(event->pos())) return static_cast<void>(hide());
  int months = 0;
  if (PreviousRect().contains(event->position())) months = -1;
  if (NextRect().contains(event->position())) months = 1;
  if (months == 0) return;
  entry_.Tell([months](Control& control) { ControlOf(control).ShowMonth(months); },
              [months](const Control&) { return KeyLine(months < 0 ? key::kPageUp : key::kPageDown, {}); });
}

void MonthView::mouseReleaseEvent(QMouseEvent* event) {
  const auto day = DayAt(event->position());
  if (!day) return;
  const DateTime date = std::chrono::local_days(calendar_.View()[*day].date);
  entry_.Tell([date](Control& control) { ControlOf(control).Pick(date); },
              [date](const Control& field) {
                return ActLine({"data", field.Name(), DateText(date)});
              });
}

void MonthView::mouseMoveEvent(QMouseEvent* event) {
  hovered_ = DayAt(event->position());
  update();
}

void MonthView::leaveEvent(QEvent*) {
  hovered_.reset();
  update();
}

// The field

CalendarioLook::CalendarioLook(CalendarioControl& control, LogicEntry& entry)
    : EntryLook(control, entry), view_(*this, control.State(), LookEntry(control, entry)) {}

void CalendarioLook::FollowControl() {
  EntryLook::FollowControl();
  if (static_cast<CalendarioControl&>(control()).State().ViewIsOpen()) {
    view_.setFont(font());
    view_.Open(MonthView::FullSize());
    view_.update();
  } else {
    view_.Close();
  }
}

void CalendarioLook::PaintButton(QPainter& painter, const QRectF& rect) {
  skin::PaintArrow(painter, rect, skin::Direction::Down, isEnabled() ? skin::kAccent : skin::kTextDisabled);
}

void CalendarioLook::PressButton() {
  Tell([](EntryControl& entry) { static_cast<CalendarioControl&>(entry).ButtonClick(); }, DropLine);
}

}  // namespace tessera
