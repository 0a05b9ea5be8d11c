#include "windows/window_model.h"

#include <algorithm>

#include "text/one_based.h"
#include "windows/form.h"
#include "windows/program_window.h"

namespace tessera {

std::string WindowSlot::BareName() const {
  std::string bare = name;
  std::erase(bare, '"');
  return bare;
}

Form& WindowSlot::window() const {
  return owner->form();
}

void ActivationOrder::BringToFront(ProgramWindow& window) {
  Remove(window);
  order_.push_back(&window);
}

void ActivationOrder::Remove(const ProgramWindow& window) {
  std::erase(order_, &window);
}

bool ModalWindows::Holds(const Form& window) const {
  return std::find(open_.begin(), open_.end(), &window) != open_.end();
}

void WindowTable::Begin(ProgramWindow& main) {
  *this = {};
  slots_[0] = {.name = std::string(kMainWindowName), .owner = &main};
  MakeCurrent(main, kMainWindowName);
}

const WindowSlot* WindowTable::SlotOf(std::string_view name) const {
  const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const WindowSlot& slot) {
    return !slot.name.empty() && EqualsIgnoringCase(slot.BareName(), name);
  });
  return found == slots_.end() ? nullptr : &*found;
}

const WindowSlot* WindowTable::SlotOf(const Form* window) const {
  const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const WindowSlot& slot) {
    return !slot.name.empty() && &slot.window() == window;
  });
  return found == slots_.end() ? nullptr : &*found;
}

WindowSlot* WindowTable::FindSlot(std::string_view name) {
  const WindowSlot* const slot = SlotOf(name);
  return slot == nullptr ? nullptr : &slots_[NumberOf(*slot)];
}

WindowSlot* WindowTable::FreeSlot() {
  const auto found =
      std::find_if(slots_.begin(), slots_.end(), [](const WindowSlot& slot) { return slot.name.empty(); });
  return found == slots_.end() ? nullptr : &*found;
}

bool WindowTable::IsDefined(const ProgramWindow& window) const {
  return std::any_of(slots_.begin(), slots_.end(),
                     [&](const WindowSlot& slot) { return slot.owner == &window && !slot.name.empty(); });
}

Form& WindowTable::CurrentForm() const {
  return current_->form();
}

void WindowTable::MakeCurrent(ProgramWindow& window, std::string_view name) {
  if (current_ != &window) UseSurface({});
  current_ = &window;
  currentName_ = name;
}

Surface& WindowTable::DrawingTarget() const {
  const std::shared_ptr<Surface> used = usedSurface_.lock();
  return used ? *used : CurrentForm();
}

void WindowModel::Reset(ProgramWindow& main) {
  Begin(main);
  if (objects == nullptr) return;
  objects->Reset();
  objects->LoadStanding(main.form());
}

Form* WindowModel::FindWindow(std::string_view name) const {
  const WindowSlot* const slot = SlotOf(name);
  return slot == nullptr ? nullptr : &slot->window();
}

std::string WindowModel::NameOf(const Form* form) const {
  const WindowSlot* const slot = SlotOf(form);
  return slot == nullptr ? std::string() : slot->BareName();
}

// A current window that is not shown is in nobody's hand: then the one in front is.
Form* WindowModel::WindowInHand() const {
  if (modal.InHand() != nullptr) return modal.InHand();
  const ProgramWindow* active = activation.Active();
  if (CurrentForm().Visible() || active == nullptr) return &CurrentForm();
  return &active->form();
}

PersonObject* WindowModel::FindObject(std::string_view name) const {
  if (modalParts != nullptr) {
    if (PersonObject* part = modalParts->FindPart(name)) return part;
  }
  PersonObject* object = objects == nullptr ? nullptr : objects->Find(name, CurrentOwner());
  return object == nullptr && trayParts != nullptr ? trayParts->FindPart(name) : object;
}

void WindowModel::OnLineDone() const {
  if (objects != nullptr) objects->CopyTexts();
}

void WindowModel::OnYield() {
  ++yields_;
  if (objects != nullptr) objects->WakeCopying();
}

bool WindowModel::CanBeReached(const Form& form) const {
  return modal.InHand() == nullptr || modal.InHand() == &form;
}

}  // namespace tessera
