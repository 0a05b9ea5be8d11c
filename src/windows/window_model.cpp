#include "windows/window_model.h"

#include <algorithm>

#include "text/one_based.h"
#include "windows/form.h"
#include "windows/program_window.h"

namespace tessera {

namespace {

std::size_t SlotIndex(const std::array<WindowSlot, WindowModel::kSlots>& slots, std::string_view name) {
  const auto sameName = [&](const WindowSlot& slot) {
    return !slot.name.empty() && EqualsIgnoringCase(slot.BareName(), name);
  };
  return static_cast<std::size_t>(std::find_if(slots.begin(), slots.end(), sameName) - slots.begin());
}

}  // namespace

std::string WindowSlot::BareName() const {
  std::string bare = name;
  std::erase(bare, '"');
  return bare;
}

void ActivationOrder::BringToFront(ProgramWindow& window) {
  Remove(window);
  order_.push_back(&window);
}

void ActivationOrder::Remove(const ProgramWindow& window) {
  std::erase(order_, &window);
}

void WindowModel::Reset(Form& mainWindow, ProgramWindow& owner) {
  static_cast<WindowTable&>(*this) = {};
  if (objects != nullptr) {
    objects->Reset();
    objects->LoadStanding(mainWindow);
  }
  MainWindow = CurrentForm = &mainWindow;
  CurrentWindowName = kMainWindowName;
  slots[0] = {&mainWindow, CurrentWindowName, &owner};
}

Surface& WindowTable::DrawingTarget() const {
  const std::shared_ptr<Surface> used = usedSurface_.lock();
  return used ? *used : *CurrentForm;
}

WindowSlot* WindowModel::FindSlot(std::string_view name) {
  const std::size_t index = SlotIndex(slots, name);
  return index == kSlots ? nullptr : &slots[index];
}

ProgramWindow& WindowModel::CurrentOwner() const {
  const auto slot = std::find_if(slots.begin(), slots.end(), [this](const WindowSlot& s) {
    return !s.name.empty() && s.window == CurrentForm;
  });
  return slot == slots.end() ? *slots[0].owner : *slot->owner;
}

Form* WindowModel::FindWindow(std::string_view name) const {
  const std::size_t index = SlotIndex(slots, name);
  return index == kSlots ? nullptr : slots[index].window;
}

std::string WindowModel::NameOf(const Form* form) const {
  const auto slot = std::find_if(slots.begin(), slots.end(),
                                 [form](const WindowSlot& s) { return !s.name.empty() && s.window == form; });
  return slot == slots.end() ? std::string() : slot->BareName();
}

// A current window that is not shown is in nobody's hand: then the one in front is.
Form* WindowModel::WindowInHand() const {
  if (!modal.empty()) return modal.back();
  const ProgramWindow* active = activation.Active();
  if (CurrentForm->Visible() || active == nullptr) return CurrentForm;
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
  return modal.empty() || modal.back() == &form;
}

}  // namespace tessera
