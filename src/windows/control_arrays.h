// The control arrays of one window: element R of each family's array, loaded and unloaded at run time, and
// the order in which the Tab key walks through all of them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "windows/control.h"

namespace tessera {

class ControlArrays {
 public:
  // The element, or null while it is not loaded.
  std::shared_ptr<Control> Element(std::string_view array, int index) const;
  // Failure 360 for an element that is loaded.
  void Load(std::string_view array, std::shared_ptr<Control> control);
  void Unload(std::string_view array, int index);
  void Clear() { arrays_.clear(); }

  // All that are loaded, from the back to the front.
  std::vector<Control*> InZOrder() const;
  // The controls that a person can reach by the Tab key, in its order.
  std::vector<Control*> TabOrder() const;

 private:
  std::map<std::string, std::map<int, std::shared_ptr<Control>>, std::less<>> arrays_;
};

}  // namespace tessera
