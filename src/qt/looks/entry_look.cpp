#include "qt/looks/entry_look.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <string>

#include "controls/key_code.h"
#include "qt/colour.h"
#include "qt/looks/skin.h"
#include "qttext/text.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr double kMargin = 5;
constexpr double kButtonWidth = 20;

}  // namespace

EntryLook::EntryLook(EntryControl& control, LogicEntry& entry) : TextLook(control, entry) {
  setCursor(Qt::IBeamCursor);
}

void EntryLook::FollowControl() {
  RestartBlinking();
  update();
}

// The geometry of the line

QRectF EntryLook::ButtonRect() const {
  if (!HasButton()) return {};
  return {width() - kButtonWidth, 1, kButtonWidth - 1, height() - 2.0};
}

QRectF EntryLook::TextRect() const {
  const double right = HasButton() ? kButtonWidth : kMargin;
  return QRectF(rect()).adjusted(kMargin, 1, -right, -1);
}

double EntryLook::AdvanceOf(std::size_t characters) const {
  const std::string_view text = control().Shown().text;
  return QFontMetricsF(font(), this).horizontalAdvance(ToQString(text.substr(0, characters)));
}

double EntryLook::TextLeft() const {
  const QRectF area = TextRect();
  const EntryControl::Line line = control().Shown();
  const double textWidth = AdvanceOf(line.text.size());
  if (textWidth < area.width()) {
    scrolled_ = 0;
    return IsRightAligned() ? area.right() - textWidth - 1 : area.left();
  }
  const double caret = AdvanceOf(line.caret);
  if (!hasFocus()) scrolled_ = 0;
  scrolled_ = std::clamp(scrolled_, caret - area.width() + 2, caret);
  return area.left() - scrolled_;
}

QRectF EntryLook::CaretRect() const {
  const QRectF area = TextRect();
  const double height = QFontMetricsF(font(), this).height();
  const double left = qRound(TextLeft() + AdvanceOf(control().Shown().caret));
  return {left, area.center().y() - height / 2, 1, height};
}

std::size_t EntryLook::PlaceAt(double x) const {
  const std::size_t size = control().Shown().text.size();
  const double left = TextLeft();
  for (std::size_t place = 0; place < size; ++place) {
    if (x < left + (AdvanceOf(place) + AdvanceOf(place + 1)) / 2) return place;
  }
  return size;
}

// Painting

void EntryLook::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ground = isEnabled() ? ToQColor(control().BackColor()) : QColor(skin::kFieldDisabled);
  skin::PaintFrame(painter, rect(), ground, skin::StateOf(*this));
  if (HasButton()) PaintButton(painter, ButtonRect());

  const QRectF area = TextRect();
  const EntryControl::Line line = control().Shown();
  const QString text = ToQString(line.text);
  const double left = TextLeft();
  const QFontMetricsF metrics(font(), this);
  const double baseline = qRound(area.center().y() - metrics.height() / 2 + metrics.ascent());
  painter.setClipRect(area.adjusted(-1, 0, 1, 0));
  painter.setPen(skin::TextColour(*this, ToQColor(control().ForeColor())));
  painter.drawText(QPointF(left, baseline), text);
  if (!hasFocus()) return;
  if (line.selLength > 0) {
    const double from = left + AdvanceOf(line.selStart);
    const double to = left + AdvanceOf(line.selStart + line.selLength);
    const QRectF selected(from, CaretRect().top(), to - from, CaretRect().height());
    painter.fillRect(selected, QColor(skin::kAccent));
    painter.setClipRect(selected.intersected(area));
    painter.setPen(Qt::white);
    painter.drawText(QPointF(left, baseline), text);
    painter.setClipRect(area.adjusted(-1, 0, 1, 0));
  }
  if (CaretIsLit()) painter.fillRect(CaretRect(), ToQColor(control().ForeColor()));
}

QVariant EntryLook::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return isEnabled();
  if (query == Qt::ImCursorRectangle) return CaretRect();
  return QWidget::inputMethodQuery(query);
}

// Pointer and clipboard

void EntryLook::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (ButtonRect().contains(event->position())) return PressButton();
  selects_ = true;
  anchor_ = PlaceAt(event->position().x());
  Select(anchor_, anchor_);
}

void EntryLook::mouseMoveEvent(QMouseEvent* event) {
  setCursor(ButtonRect().contains(event->position()) ? Qt::ArrowCursor : Qt::IBeamCursor);
  if (!selects_) return;
  Select(anchor_, PlaceAt(event->position().x()));
}

void EntryLook::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(selects_, false)) return;
  if (!rect().contains(event->pos())) return;
  Tell([](EntryControl& entry) { entry.Click(); },
       [](const EntryControl& entry) {
         return ActLine({"clique", entry.Name()});
       });
}

void EntryLook::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (ButtonRect().contains(event->position())) return PressButton();
  SelectAll();
  Tell([](EntryControl& entry) { entry.DoubleClick(); },
       [](const EntryControl& entry) {
         return ActLine({"duploclique", entry.Name()});
       });
}

// In an empty entry the caret has but one place.
void EntryLook::Select(std::size_t from, std::size_t to) {
  Tell([from, to](EntryControl& entry) { entry.PlaceCaret(from, to); },
       [from, to](const EntryControl& entry) {
         return entry.Shown().text.empty() ? std::string() : CaretLine(entry.Name(), from, to);
       });
}

void EntryLook::SelectAll() {
  Select(0, control().Shown().text.size());
}

std::string EntryLook::Selected() const {
  const EntryControl::Line line = control().Shown();
  return line.text.substr(line.selStart, line.selLength);
}

void EntryLook::DeleteSelected() {
  Tell([](EntryControl& entry) { entry.OnKeyDown(key::kDelete, {}); },
       [](const EntryControl&) { return KeyLine(key::kDelete, {}); });
}

void EntryLook::Paste(const std::string& text) {
  Tell([text](EntryControl& entry) { entry.Paste(text); },
       [&](const EntryControl&) { return TypingLines(text.substr(0, text.find_first_of("\r\n"))); });
}

}  // namespace tessera
