#include "objects/object_frame.h"

#include <utility>

#include "platform/failure.h"
#include "text/one_based.h"
#include "windows/program_window.h"
#include "windows/window_model.h"

namespace tessera {

ObjectFrame::ObjectFrame(Run& run, WindowModel& windows) : run_(run), windows_(windows) {
  windows_.objects = this;
}

ObjectFrame::~ObjectFrame() {
  windows_.objects = nullptr;
}

void ObjectFrame::AddFamily(CommandTable& table, std::unique_ptr<ObjectFamily> family) {
  table.Add(family->word().name, [family = family.get()](const WordCall& call) { return family->Do(call); });
  families_.push_back(std::move(family));
}

int ObjectFrame::TakeTabIndex() {
  const int taken = NextTabIndex_;
  NextTabIndex_ = Value(taken + 1).ToShort();
  return taken;
}

Control* ObjectFrame::FindPicture(std::string_view name) const {
  if (pictures_ == nullptr) return nullptr;
  for (const ObjectRow& row : pictures_->Rows()) {
    if (!row.name.empty() && EqualsIgnoringCase(row.name, name)) return row.object.lock().get();
  }
  return nullptr;
}

void ObjectFrame::RemoveWithin(const Control& picture) {
  for (const auto& family : families_) family->RemoveWithin(picture);
}

void ObjectFrame::Reset() {
  for (const auto& family : families_) family->Reset();
  NextTabIndex_ = 0;
}

void ObjectFrame::ClearWindow(const Form& window) {
  for (const auto& family : families_) family->ClearWindow(window);
}

void ObjectFrame::ClearMainWindow() {
  for (const auto& family : families_) family->ClearMainWindow();
}

PersonObject* ObjectFrame::Find(std::string_view name, const ProgramWindow& window) {
  PersonObject* first = nullptr;
  for (const auto& family : families_) {
    for (PersonObject* object : family->Named(name)) {
      if (object->Window() == &window.form()) return object;
      if (first == nullptr) first = object;
    }
  }
  if (first != nullptr) return first;
  for (const Finder& find : finders_) {
    if (PersonObject* found = find(name, window)) return found;
  }
  return nullptr;
}

void ObjectFrame::CopyTexts() {
  for (const auto& family : families_) family->CopyTexts();
}

void ObjectFrame::WakeCopying() {
  for (const auto& family : families_) family->WakeCopying();
}

}  // namespace tessera
