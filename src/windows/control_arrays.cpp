#include "windows/control_arrays.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "text/literal.h"

namespace tessera {

std::shared_ptr<Control> ControlArrays::Element(std::string_view array, int index) const {
  const auto elements = arrays_.find(array);
  if (elements == arrays_.end()) return nullptr;
  const auto element = elements->second.find(index);
  return element == elements->second.end() ? nullptr : element->second;
}

void ControlArrays::Load(std::string_view array, std::shared_ptr<Control> control) {
  const int index = control->Index();
  if (!arrays_[std::string(array)].emplace(index, std::move(control)).second) {
    throw RunFailure(360, "Objeto já carregado"_w);
  }
}

void ControlArrays::Unload(std::string_view array, int index) {
  const auto elements = arrays_.find(array);
  if (elements != arrays_.end()) elements->second.erase(index);
}

std::vector<Control*> ControlArrays::InZOrder() const {
  std::vector<Control*> order;
  for (const auto& [name, elements] : arrays_) {
    for (const auto& [index, control] : elements) order.push_back(control.get());
  }
  std::sort(order.begin(), order.end(),
            [](const Control* a, const Control* b) { return a->ZStamp() < b->ZStamp(); });
  return order;
}

std::vector<Control*> ControlArrays::TabOrder() const {
  std::vector<Control*> order;
  for (const auto& [name, elements] : arrays_) {
    for (const auto& [index, control] : elements) {
      if (control->TakesFocus() && control->IsInReach()) order.push_back(control.get());
    }
  }
  std::sort(order.begin(), order.end(),
            [](const Control* a, const Control* b) { return a->IsTabbedBefore(*b); });
  return order;
}

}  // namespace tessera
