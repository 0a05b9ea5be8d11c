#include "windows/tray.h"

#include "text/one_based.h"
#include "windows/form.h"
#include "windows/program_window.h"

namespace tessera {

Tray::Tray(CommandTable& table, WindowModel& windows, Desktop& desktop)
    : windows_(windows), desktop_(desktop) {
  constexpr MemberRow<Tray> kRows[] = {{"AdicioneIconeBarra", &Tray::AdicioneIconeBarra},
                                       {"MinimizeBarra", &Tray::MinimizeBarra}};
  Bind(table, kRows, *this);
  windows_.trayParts = this;
}

Tray::~Tray() {
  windows_.trayParts = nullptr;
}

Value Tray::AdicioneIconeBarra(const WordCall&) {
  const Form& form = windows_.CurrentForm();
  if (!stands_) stands_ = desktop_.ShowTrayIcon(form.Icon(), form.Caption(), *this);
  return {};
}

// OPEN: where no icon stands nothing would bring a hidden window back, and hiding ends a modal one: there the
// window is minimised.
Value Tray::MinimizeBarra(const WordCall&) {
  ProgramWindow& window = windows_.CurrentOwner();
  if (!stands_ || windows_.modal.Holds(window.form())) {
    window.form().SetState(WindowState::Minimised);
  } else if (window.form().Visible()) {
    hidden_.push_back(&window);
    window.Hide();
  }
  return {};
}

void Tray::ShowLast() {
  while (!hidden_.empty()) {
    ProgramWindow* const last = hidden_.back();
    hidden_.pop_back();
    if (!windows_.IsDefined(*last) || last->form().Visible()) continue;
    last->OnActivate();
    last->Show();
    return;
  }
}

// OPEN: with several windows hidden each choice brings back one, the last one first.
void Tray::OnMenuAtivo() {
  ShowLast();
}

void Tray::OnMenuSair() {
  windows_.Main().Unload();
}

void Tray::OnTrayGone() {
  stands_ = false;
  while (!hidden_.empty()) ShowLast();
}

PersonObject* Tray::FindPart(std::string_view name) {
  if (!stands_) return nullptr;
  if (EqualsIgnoringCase(name, "MenuAtivo")) return &MenuAtivo_;
  return EqualsIgnoringCase(name, "MenuSair") ? &MenuSair_ : nullptr;
}

}  // namespace tessera
