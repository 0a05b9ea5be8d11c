// The part of a window that has to do with its objects: their loading, the focus and the keys.
#include <algorithm>
#include <utility>

#include "windows/form.h"

namespace tessera {

namespace {

constexpr int kKeyTab = 9;

}  // namespace

void Form::LoadControl(std::string_view array, const std::shared_ptr<Control>& control) {
  controls_.Load(array, control);
  control->TakeView(NewView(*control));
}

void Form::UnloadControl(std::string_view array, int index) {
  controls_.Unload(array, index);
}

void Form::UnloadControls() {
  controls_.Clear();
}

void Form::MoveFocus(Control* to) {
  Control* from = Focus();
  if (from == to) return;
  focus_ = to == nullptr ? std::weak_ptr<Control>() : to->weak_from_this();
  if (from != nullptr) {
    lastFocus_ = from->weak_from_this();
    from->LoseFocus();
  }
  if (to == nullptr) return ShowSinkFocus();
  if (ControlView* view = to->View()) view->TakeFocus();
  to->GainFocus();
}

bool Form::FocusNext(bool forward) {
  const std::vector<Control*> order = controls_.TabOrder();
  if (order.empty()) return false;
  const Control* from = Focus() != nullptr ? Focus() : lastFocus_.lock().get();
  const auto count = static_cast<std::ptrdiff_t>(order.size());
  // A control out of reach has its place in the order all the same.
  const std::ptrdiff_t behind =
      from == nullptr ? 0 : std::count_if(order.begin(), order.end(), [from](const Control* control) {
        return control == from || control->IsTabbedBefore(*from);
      });
  const bool stands = behind > 0 && order[static_cast<std::size_t>(behind - 1)] == from;
  const std::ptrdiff_t next = forward ? behind : behind - (stands ? 2 : 1);
  MoveFocus(order[static_cast<std::size_t>((next + count) % count)]);
  return true;
}

void Form::DropFocus(const Control& control) {
  if (Focus() == &control || (Focus() != nullptr && Focus()->LiesIn(control))) MoveFocus(nullptr);
}

bool Form::PreviewKey(int keyCode, KeyShift shift) {
  if (keyCode == kKeyTab && FocusNext(!shift.shift)) return true;
  if (KeyPreview || Focus() == nullptr) events_.OnKeyDown(keyCode, shift);
  return false;
}

bool Form::PressKey(int keyCode, KeyShift shift) {
  if (PreviewKey(keyCode, shift)) return true;
  // The key may unload the control that it goes to.
  if (const auto control = focus_.lock()) {
    control->OnKeyDown(keyCode, shift);
  } else {
    events_.OnSinkKeyDown(keyCode, shift);
  }
  return false;
}

bool Form::PreviewCharacter(char character) {
  return (KeyPreview || Focus() == nullptr) && events_.OnKeyPress(character);
}

void Form::TypeCharacter(char character) {
  if (PreviewCharacter(character)) return;
  if (const auto control = focus_.lock()) control->OnKeyPress(character);
}

void Form::ReleaseKey(int keyCode, KeyShift shift) {
  const auto control = focus_.lock();
  if (KeyPreview || control == nullptr) events_.OnKeyUp(keyCode, shift);
  if (control != nullptr) {
    control->OnKeyUp(keyCode, shift);
  } else {
    events_.OnSinkKeyUp(keyCode, shift);
  }
}

}  // namespace tessera
