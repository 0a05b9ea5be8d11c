#include "objects/menu_sistema.h"

#include <utility>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/program_window.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr std::string_view kGuia = "Guia";
constexpr ControlPlace kBarSize = {.Width = 640, .Height = 24};

std::size_t MenuIndex(const Value& value) {
  const std::int32_t index = value.ToInteger();
  if (index < 0 || index >= static_cast<std::int32_t>(GuiaControl::kMenus)) Fail(340);
  return static_cast<std::size_t>(index);
}

}  // namespace

// Items

Form* MenuItem::Window() const {
  return &bar_.form();
}

bool MenuItem::IsInReach() const {
  return visible && bar_.IsInReach();
}

void MenuItem::Click() {
  bar_.ClickItem(*this);
}

// The bar

GuiaControl::GuiaControl(Form& form, ControlEvents& events) : Control(form, events, 0, kBarSize) {
  for (auto& tab : tabs_) tab = std::make_unique<MenuItem>(*this);
}

void GuiaControl::SetGuia(std::size_t menu, std::string_view caption) {
  tabs_[menu]->caption = caption;
  tabs_[menu]->visible = true;
  Refresh();
}

void GuiaControl::AddEntry(std::size_t menu, std::string_view caption) {
  auto& entry = entries_[menu].emplace_back(std::make_unique<MenuItem>(*this));
  entry->caption = caption;
  entry->visible = true;
  Refresh();
}

void GuiaControl::ClearMenus() {
  for (auto& menu : entries_) menu.clear();
  Refresh();
}

MenuItem* GuiaControl::Find(std::string_view caption) const {
  for (const auto& tab : tabs_) {
    if (tab->visible && tab->caption == caption) return tab.get();
  }
  for (const auto& menu : entries_) {
    for (const auto& entry : menu) {
      if (entry->caption == caption) return entry.get();
    }
  }
  return nullptr;
}

std::string GuiaControl::PortraitText() const {
  std::string text;
  for (const auto& tab : tabs_) {
    if (tab->visible) text += (text.empty() ? "" : "  ") + tab->caption;
  }
  return text;
}

void GuiaControl::ClickItem(const MenuItem& item) {
  chosen_ = item.caption;
  Events().OnClick(*this);
}

// The command

void MenuSistema::BindCommand(CommandTable& table) {
  constexpr MemberRow<MenuSistema> kRows[] = {{"MenuSistema", &MenuSistema::Do}};
  Bind(table, kRows, *this);
  frame_.AddFinder(
      [this](std::string_view name, const ProgramWindow& window) { return FindItem(name, window); });
}

// OPEN: the entries of a menu are those of the window on which they were made, and "INICIA" empties the
// menus of the current window, so that they can be filled anew.
Value MenuSistema::Do(const WordCall& call) {
  const Arguments arguments(call);
  const std::string word = arguments.Word("palavra");
  if (word == "INICIA") Bar().ClearMenus();
  if (word != "GUIA") return {};
  const std::size_t menu = MenuIndex(arguments.Number("guia"));
  const std::string kind = arguments.Word("tipo");
  const std::string caption = arguments.Number("texto").ToText();
  if (kind.empty()) Bar().SetGuia(menu, caption);
  if (kind == "OPCAO") Bar().AddEntry(menu, caption);
  return {};
}

GuiaControl& MenuSistema::Bar() {
  WindowModel& windows = frame_.windows();
  if (!windows.CurrentOwner().Carries(kGuia)) {
    throw RunFailure(438, "A janela não tem esta família de objetos"_w);
  }
  Form& form = windows.CurrentForm();
  if (!form.Controls().Element(kGuia, 0)) {
    form.LoadControl(kGuia, std::make_shared<GuiaControl>(form, *this));
    form.Controls().Element(kGuia, 0)->SetVisible(true);
  }
  return static_cast<GuiaControl&>(*form.Controls().Element(kGuia, 0));
}

PersonObject* MenuSistema::FindItem(std::string_view caption, const ProgramWindow& window) const {
  const auto bar = std::static_pointer_cast<GuiaControl>(window.form().Controls().Element(kGuia, 0));
  return bar ? bar->Find(caption) : nullptr;
}

void MenuSistema::OnClick(Control& control) {
  const std::string chosen = static_cast<GuiaControl&>(control).Chosen();
  frame_.windows().events.UltimoBotao = chosen;
  Guard([&] { frame_.run().variables.VarWrite("TestaBotao", chosen, true); });
}

}  // namespace tessera
