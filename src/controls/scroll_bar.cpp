#include "controls/scroll_bar.h"

#include <algorithm>

#include "text/number.h"

namespace tessera {

void ScrollBar::IniciaBarra(int length, int arrow, int thumb) {
  length_ = length;
  thumbLength_ = thumb;
  troughStart_ = arrow;
  troughEnd_ = std::max(troughStart_, length - arrow - thumb);
  PlaceThumb();
}

void ScrollBar::SetMax(std::int32_t max) {
  max_ = std::max(max, 0);
  PlaceThumb();
}

// KEPT: a value beyond `Max` is not clipped here (BarTest.ClipsAValueBeyondMaxWhenItNextMoves).
void ScrollBar::SetValue(std::int32_t value) {
  const std::int32_t before = value_;
  value_ = value;
  toldValue_ = value;
  PlaceThumb();
  if (before != value && Change) Change();
}

void ScrollBar::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) PointerUp();
}

void ScrollBar::Step(int direction) {
  if (!enabled_) return;
  const std::int64_t moved = std::int64_t{value_} + std::int64_t{smallChange_} * direction;
  SetValue(static_cast<std::int32_t>(std::clamp<std::int64_t>(moved, 0, max_)));
}

ScrollBar::Part ScrollBar::PartAt(int position) const {
  if (position < 0 || position >= length_) return Part::kNone;
  if (position < troughStart_) return Part::kFirstArrow;
  if (position >= length_ - troughStart_) return Part::kSecondArrow;
  const bool onThumb = position >= thumb_ && position < thumb_ + thumbLength_;
  return onThumb ? Part::kThumb : Part::kTrough;
}

void ScrollBar::PointerDown(int position) {
  if (!enabled_) return;
  held_ = PartAt(position);
  ticks_ = 0;
  switch (held_) {
    case Part::kFirstArrow:
      Step(-1);
      break;
    case Part::kSecondArrow:
      Step(1);
      break;
    case Part::kThumb:
      pressOffset_ = position - thumb_;
      toldValue_ = value_;
      break;
    case Part::kTrough:
      MoveThumb(position);
      TellDrag();
      break;
    case Part::kNone:
      break;
  }
}

void ScrollBar::PointerMove(int position) {
  if (Dragging()) MoveThumb(position - pressOffset_);
}

void ScrollBar::PointerUp() {
  const bool dragged = Dragging();
  held_ = Part::kNone;
  // OPEN: a drag that ends between two told ticks tells its last value, so that the owner is never behind.
  if (dragged) TellDrag();
}

void ScrollBar::Tick() {
  if (!TimerRuns()) return;
  ++ticks_;
  if (Dragging()) {
    if (ticks_ % kTicksPerDragChange == 0) TellDrag();
  } else if (ticks_ > kTicksBeforeRepeat) {
    ticks_ = kTicksBeforeRepeat;  // counting on would say nothing more
    Step(held_ == Part::kFirstArrow ? -1 : 1);
  }
}

float ScrollBar::Scale() const {
  return static_cast<float>(troughEnd_ - troughStart_) / static_cast<float>(max_ == 0 ? 1 : max_);
}

void ScrollBar::PlaceThumb() {
  const double wanted = RoundHalfEven(troughStart_ + double{Scale()} * value_);
  thumb_ = static_cast<int>(std::clamp<double>(wanted, troughStart_, troughEnd_));
}

void ScrollBar::MoveThumb(int position) {
  const float scale = Scale();
  if (max_ == 0 || scale <= 0 || position < troughStart_) {
    thumb_ = troughStart_;
    value_ = 0;
  } else if (position > troughEnd_) {
    thumb_ = troughEnd_;
    value_ = max_;
  } else {
    thumb_ = position;
    const double value = RoundHalfEven((thumb_ - troughStart_) / double{scale});
    value_ = static_cast<std::int32_t>(std::clamp<double>(value, 0, max_));
  }
}

// OPEN: a thumb that is held still tells nothing new.
void ScrollBar::TellDrag() {
  if (toldValue_ == value_) return;
  toldValue_ = value_;
  if (Change) Change();
}

}  // namespace tessera
