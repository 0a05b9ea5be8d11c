#include "qt/looks/combo_look.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr double kMargin = 5;
constexpr double kMarkWidth = 5;
constexpr int kWheelStep = 120;  // eighths of a degree of one notch
constexpr int kRowsPerNotch = 3;

ComboControl& ComboOf(Control& control) {
  return static_cast<ComboControl&>(control);
}

}  // namespace

// The list

ListView::ListView(ComboLook& field, const ComboControl& combo, LookEntry entry)
    : DroppedView(field,
                  [entry] {
                    entry.Tell(
                        [](Control& control) {
                          if (ComboOf(control).State().ListIsOpen()) ComboOf(control).ArrowClick();
                        },
                        DropLine);
                  }),
      combo_(combo),
      entry_(entry) {}

QSize ListView::FullSize(int width) const {
  const auto rows = std::max<std::ptrdiff_t>(combo_.State().ListRows(), 1);
  return {width, qRound(static_cast<double>(rows) * combo_.RowHeight()) + 2};
}

QRectF ListView::EntryRect(std::ptrdiff_t entry) const {
  const auto row = static_cast<double>(entry - combo_.State().FirstVisible());
  return {1, 1 + row * combo_.RowHeight(), width() - 2.0, combo_.RowHeight()};
}

std::ptrdiff_t ListView::EntryAt(QPointF at) const {
  if (!QRectF(rect()).contains(at)) return SpCombo::kNoEntry;
  const auto row = static_cast<std::ptrdiff_t>((at.y() - 1) / combo_.RowHeight());
  return combo_.State().FirstVisible() + std::clamp<std::ptrdiff_t>(row, 0, combo_.State().ListRows() - 1);
}

void ListView::paintEvent(QPaintEvent*) {
  const SpCombo& state = combo_.State();
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(combo_.BackColor()));
  painter.setPen(QColor(skin::kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const std::ptrdiff_t end = state.FirstVisible() + state.ListRows();
  for (std::ptrdiff_t entry = state.FirstVisible(); entry < end; ++entry) {
    const QRectF row = EntryRect(entry);
    const bool isHighlighted = entry == state.Highlighted();
    if (isHighlighted) painter.fillRect(row, QColor(skin::kAccent));
    painter.setPen(isHighlighted ? QColor(Qt::white) : ToQColor(combo_.ForeColor()));
    painter.drawText(row.adjusted(kMargin, 0, -kMargin, 0),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     ToQString(state.Entries()[static_cast<std::size_t>(entry)]));
  }
  PaintMark(painter);
}

// How much of the list is in sight.
void ListView::PaintMark(QPainter& painter) {
  const SpCombo& state = combo_.State();
  const auto all = static_cast<double>(state.Entries().size());
  if (static_cast<double>(state.ListRows()) >= all) return;
  const double room = height() - 4;
  const QRectF mark(width() - kMarkWidth - 2, 2 + room * static_cast<double>(state.FirstVisible()) / all,
                    kMarkWidth, room * static_cast<double>(state.ListRows()) / all);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(skin::kEdge));
  painter.drawRoundedRect(mark, kMarkWidth / 2, kMarkWidth / 2);
}

// A press outside is that of a person turning elsewhere.
void ListView::mousePressEvent(QMouseEvent* event) {
  if (!rect().contains(event->pos())) hide();
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
  const std::ptrdiff_t entry = EntryAt(event->position());
  if (entry != SpCombo::kNoEntry)
    entry_.Tell([entry](Control& control) { ComboOf(control).ListClick(entry); },
                [entry](const Control& combo) {
                  return ActLine({"escolhe", combo.Name(), std::to_string(entry)});
                });
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
  const std::ptrdiff_t entry = EntryAt(event->position());
  if (entry != SpCombo::kNoEntry)
    entry_.Tell([entry](Control& control) { ComboOf(control).ListHover(entry); });
}

void ListView::wheelEvent(QWheelEvent* event) {
  const int rows = -event->angleDelta().y() * kRowsPerNotch / kWheelStep;
  entry_.Glance([rows](Control& control) { ComboOf(control).Wheel(rows); });
}

// The field

ComboLook::ComboLook(ComboControl& control, LogicEntry& entry)
    : EntryLook(control, entry), list_(*this, control, LookEntry(control, entry)) {}

void ComboLook::FollowControl() {
  EntryLook::FollowControl();
  const auto& combo = static_cast<ComboControl&>(control());
  if (combo.State().ListIsOpen()) {
    list_.setFont(font());
    list_.Open(list_.FullSize(width()));
    list_.update();
  } else {
    list_.Close();
  }
}

void ComboLook::PaintButton(QPainter& painter, const QRectF& rect) {
  skin::PaintArrow(painter, rect, skin::Direction::Down, isEnabled() ? skin::kAccent : skin::kTextDisabled);
}

void ComboLook::PressButton() {
  Tell([](EntryControl& entry) { static_cast<ComboControl&>(entry).ArrowClick(); }, DropLine);
}

}  // namespace tessera
