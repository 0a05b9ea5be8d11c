// `MenuSistema`, the bar of tabs and menus at the upper edge of a window: ten tabs, each with its menu.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "objects/object_frame.h"
#include "windows/control.h"

namespace tessera {

class GuiaControl;

// A tab of the bar, or an entry of its menu.
class MenuItem final : public PersonObject {
 public:
  explicit MenuItem(GuiaControl& bar) : bar_(bar) {}

  std::string caption;
  bool visible = false;

  Form* Window() const override;
  bool IsInReach() const override;
  void Click() override;

 private:
  GuiaControl& bar_;
};

class GuiaControl final : public Control {
 public:
  static constexpr std::size_t kMenus = 10;

  // Tells its owner of a click by `Chosen`.
  GuiaControl(Form& form, ControlEvents& events);

  const MenuItem& Guia(std::size_t menu) const { return *tabs_[menu]; }
  const std::vector<std::unique_ptr<MenuItem>>& MenuGuia(std::size_t menu) const { return entries_[menu]; }
  void SetGuia(std::size_t menu, std::string_view caption);
  void AddEntry(std::size_t menu, std::string_view caption);
  // The menus are empty again; the tabs stay.
  void ClearMenus();

  // The tab or entry of that text; null where there is none.
  MenuItem* Find(std::string_view caption) const;

  // The text of what was clicked last.
  const std::string& Chosen() const { return chosen_; }
  void ClickItem(const MenuItem& item);

  bool TakesFocus() const override { return false; }
  std::string PortraitText() const override;

 private:
  std::array<std::unique_ptr<MenuItem>, kMenus> tabs_;
  std::array<std::vector<std::unique_ptr<MenuItem>>, kMenus> entries_;
  std::string chosen_;
};

class MenuSistema final : public ControlEvents {
 public:
  explicit MenuSistema(ObjectFrame& frame) : frame_(frame) {}

  // `MenuSistema`.
  void BindCommand(CommandTable& table);

  void OnClick(Control& control) override;

 private:
  Value Do(const WordCall& call);
  GuiaControl& Bar();
  PersonObject* FindItem(std::string_view caption, const ProgramWindow& window) const;

  ObjectFrame& frame_;
};

}  // namespace tessera
