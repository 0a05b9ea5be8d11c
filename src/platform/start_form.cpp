#include "platform/start_form.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace tessera {

namespace {

constexpr const char* kVariable = "TESSERA_JANELA";

constexpr std::array kForms = {StartForm::Hidden,
                               StartForm::Normal,
                               StartForm::Minimised,
                               StartForm::Maximised,
                               StartForm::NormalWithoutFocus,
                               StartForm::MinimisedWithoutFocus};

std::string NumberOf(StartForm form) {
  return std::to_string(static_cast<int>(form));
}

}  // namespace

std::string StartFormVariable(StartForm form) {
  return std::string(kVariable) + "=" + NumberOf(form);
}

StartForm TakeStartForm() {
  const char* value = std::getenv(kVariable);
  if (value == nullptr) return StartForm::Normal;
  const std::string number = value;
  unsetenv(kVariable);
  const auto found =
      std::find_if(kForms.begin(), kForms.end(), [&](StartForm form) { return NumberOf(form) == number; });
  return found == kForms.end() ? StartForm::Normal : *found;
}

}  // namespace tessera
