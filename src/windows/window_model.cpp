#include "windows/window_model.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera {

void WindowModel::Reset(Form& mainWindow) {
  *this = {};
  MainWindow = CurrentForm = &mainWindow;
  CurrentWindowName = kMainWindowName;
  slots[0] = {&mainWindow, CurrentWindowName};
}

Form* WindowModel::FindWindow(std::string_view name) const {
  const auto sameName = [&](const WindowSlot& slot) {
    std::string bare = slot.name;
    std::erase(bare, '"');
    return !slot.name.empty() && EqualsIgnoringCase(bare, name);
  };
  const auto found = std::find_if(slots.begin(), slots.end(), sameName);
  return found == slots.end() ? nullptr : found->window;
}

}  // namespace tessera
