// `AdicioneIconeBarra` and `MinimizeBarra`: the icon of the program in the desktop's tray, and the windows
// that are hidden behind it.
#pragma once

#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "windows/person_object.h"
#include "windows/screen.h"
#include "windows/window_model.h"

namespace tessera {

class Form;
class ProgramWindow;

class Tray final : public TrayEvents, public WindowParts {
 public:
  // They outlive it.
  Tray(CommandTable& table, WindowModel& windows, Desktop& desktop);
  ~Tray() override;
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;

  // An entry of the menu, `MenuAtivo` or `MenuSair`; null before the icon stands.
  PersonObject* FindPart(std::string_view name) override;

  void OnMenuAtivo() override;
  void OnMenuSair() override;
  void OnTrayGone() override;

 private:
  // It lies on no window, and is in reach whatever the windows do.
  class Entry final : public PersonObject {
   public:
    Entry(Tray& tray, void (Tray::*act)()) : tray_(tray), act_(act) {}
    bool IsInReach() const override { return true; }
    void Click() override { (tray_.*act_)(); }

   private:
    Tray& tray_;
    void (Tray::*act_)();
  };

  Value AdicioneIconeBarra(const WordCall& call);
  Value MinimizeBarra(const WordCall& call);
  // Shows the window hidden last that is still there, if any is.
  void ShowLast();

  WindowModel& windows_;
  Desktop& desktop_;
  bool stands_ = false;
  std::vector<ProgramWindow*> hidden_;
  Entry MenuAtivo_{*this, &Tray::OnMenuAtivo};
  Entry MenuSair_{*this, &Tray::OnMenuSair};
};

}  // namespace tessera
