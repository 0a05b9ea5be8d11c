#include "windows/control.h"

#include <utility>

#include "windows/form.h"

namespace tessera {

Control::Control(Form& form, ControlEvents& events, int index, const ControlPlace& place)
    : form_(form),
      events_(events),
      index_(index),
      number_(form.TakeControlNumber()),
      place_(place),
      zStamp_(form.TakeZStamp(ZOrder::Front)) {}

Control::~Control() = default;

void Control::Move(const ControlPlace& place) {
  const ControlPlace before = std::exchange(place_, place);
  if (place.Width != before.Width || place.Height != before.Height) Resized();
  Refresh(ControlProperty::Place);
}

// OPEN: a control that a person can't reach has no focus, and is given none.
void Control::SetVisible(bool visible) {
  Set(visible_, visible, ControlProperty::Visible);
  if (!visible) form_.DropFocus(*this);
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  EnabledChanged();
  Refresh(ControlProperty::Enabled);
  if (!enabled) form_.DropFocus(*this);
}

void Control::SetTabIndex(int tabIndex) {
  tabIndex_ = tabIndex;
  tabStamp_ = form_.NextTabStamp();
}

bool Control::IsTabbedBefore(const Control& other) const {
  if (tabIndex_ != other.tabIndex_) return tabIndex_ < other.tabIndex_;
  return tabStamp_ > other.tabStamp_;
}

bool Control::LiesIn(const Control& picture) const {
  const Control* parent = Parent();
  return parent != nullptr && (parent == &picture || parent->LiesIn(picture));
}

void Control::SetParent(Control& picture) {
  if (&picture == this || picture.LiesIn(*this)) return;
  parent_ = picture.weak_from_this();
  zStamp_ = form_.TakeZStamp(LiesBehind() ? ZOrder::Back : ZOrder::Front);
  Refresh(ControlProperty::Parent);
}

void Control::LeaveParent() {
  if (Parent() == nullptr) return;
  parent_.reset();
  Refresh(ControlProperty::Parent);
}

void Control::SetZOrder(ZOrder order) {
  zStamp_ = form_.TakeZStamp(order);
  Refresh(ControlProperty::Order);
}

void Control::SetFont(const FontFace& font) {
  font_ = font;
  FontChanged();
  Refresh(ControlProperty::Font);
}

PointerPlace Control::Corner() const {
  const Control* parent = Parent();
  const PointerPlace outer = parent == nullptr ? PointerPlace{} : parent->Corner();
  return {outer.x + place_.Left, outer.y + place_.Top};
}

bool Control::Holds(PointerPlace at) const {
  const PointerPlace corner = Corner();
  return at.x >= corner.x && at.y >= corner.y && at.x < corner.x + place_.Width &&
         at.y < corner.y + place_.Height;
}

bool Control::IsInReach() const {
  return IsShown() && enabled_;
}

void Control::SetFocus() {
  if (IsInReach() && TakesFocus()) form_.MoveFocus(this);
}

void Control::GainFocus() {
  FocusGained();
  Refresh();
  events_.OnGotFocus(*this);
}

void Control::LoseFocus() {
  FocusLost();
  Refresh();
  events_.OnLostFocus(*this);
}

void Control::TakeView(std::unique_ptr<ControlView> view) {
  view_ = std::move(view);
}

void Control::Refresh(ControlProperty changed) {
  if (view_) view_->Follow(changed);
}

}  // namespace tessera
