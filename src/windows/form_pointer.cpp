// The part of a window that has to do with its place and the pointer.
#include <algorithm>
#include <cmath>
#include <utility>

#include "windows/form.h"

namespace tessera {

namespace {

double OnPixels(double twips) {
  return TwipsOfPixels(std::round(PixelsOfTwips(twips)));
}

}  // namespace

void Form::Move(const Placement& place) {
  const Placement before = std::exchange(
      place_, {OnPixels(place.Left), OnPixels(place.Top), OnPixels(place.Width), OnPixels(place.Height)});
  ShowPlace();
  if (place_.Width != before.Width || place_.Height != before.Height) events_.OnResize();
}

void Form::TakeScale(double width, double height) {
  place_.Width = OnPixels(TwipsOfPixels(width));
  place_.Height = OnPixels(TwipsOfPixels(height)) + kFrameTwips;
  events_.OnResize();
}

Control* Form::PointerTarget(PointerPlace at) const {
  const std::vector<Control*> order = controls_.InZOrder();
  // What lies in a picture lies in front of it, as far as the picture reaches.
  Control* target = nullptr;
  for (bool goesOn = true; goesOn;) {
    const auto front = std::find_if(order.rbegin(), order.rend(), [&](const Control* control) {
      return control->Parent() == target && control->Visible() && control->Holds(at);
    });
    goesOn = front != order.rend();
    if (goesOn) target = *front;
  }
  return target != nullptr && target->TakesPointer() ? target : nullptr;
}

void Form::PressButton(MouseButton button, PointerPlace at) {
  pointer_ = at;
  if (button == MouseButton::Left && style_.AutoDrag) {
    draggedAt_ = at;
  } else {
    events_.OnMouseDown(button, at.x, at.y);
  }
}

void Form::PressButtonAgain(PointerPlace at) {
  pointer_ = at;
  isPressedAgain_ = true;
  events_.OnDoubleClick();
}

void Form::ReleaseButton(MouseButton button, PointerPlace at) {
  pointer_ = at;
  const bool isLeft = button == MouseButton::Left;
  const bool isClick = isLeft && !std::exchange(isPressedAgain_, false);
  if (isLeft && std::exchange(draggedAt_, std::nullopt)) return;
  events_.OnMouseUp(button, at.x, at.y);
  if (isClick) events_.OnClick();
}

// A window that moves slides along below the pointer.
void Form::MovePointer(PointerPlace to) {
  pointer_ = to;
  const Placement before = place_;
  if (draggedAt_) {
    Placement dragged = place_;
    dragged.Left += TwipsOfPixels(to.x - draggedAt_->x);
    dragged.Top += TwipsOfPixels(to.y - draggedAt_->y);
    Move(dragged);
  } else {
    events_.OnMouseMove(to.x, to.y);
  }
  pointer_.x -= PixelsOfTwips(place_.Left - before.Left);
  pointer_.y -= PixelsOfTwips(place_.Top - before.Top);
}

}  // namespace tessera
