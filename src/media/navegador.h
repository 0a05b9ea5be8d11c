// `Navegador`, the web control of a window. What shows pages is a part of its own, loaded when a program
// first shows them; a host without it walks through the addresses alone, and tells them.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "media/keyword_call.h"
#include "media/media.h"
#include "media/page_view.h"
#include "windows/control.h"

namespace tessera {

struct WindowModel;

}  // namespace tessera

namespace tessera::media {

class NavegadorControl final : public Control {
 public:
  NavegadorControl(Form& form, ControlEvents& events);
  ~NavegadorControl() override;

  // The last address that it was sent to before its activation.
  std::string WaitingUrl;

  // The part's entry point. From now on a host with windows shows pages, and says by `pages` where.
  void Activate(void* viewEntry);
  void* viewEntry() const { return viewEntry_; }
  // The same where nothing is shown.
  void Activate(std::unique_ptr<Pages> memory);

  // Null before the activation.
  Pages* pages = nullptr;

  // Its right and its lower edge follow those of the window.
  void FollowWindow(double width, double height) override;

 private:
  void* viewEntry_ = nullptr;
  std::unique_ptr<Pages> memory_;
};

class Navegador final : public ControlEvents {
 public:
  // All outlive it.
  Navegador(CommandTable& table, Run& run, WindowModel& windows, Media& media);

 private:
  Value Do(const WordCall& call);
  void Ativa(const ArgumentView& arguments);
  void Url(const ArgumentView& arguments);
  void Voltar(const ArgumentView& arguments);
  void Avancar(const ArgumentView& arguments);
  void Parar(const ArgumentView& arguments);
  void Home(const ArgumentView& arguments);
  void Atualizar(const ArgumentView& arguments);

  // That of the current window.
  NavegadorControl& Current();
  void Activate(NavegadorControl& control);
  Address AddressOf(const std::string& url) const;

  Run& run_;
  WindowModel& windows_;
  Media& media_;
};

}  // namespace tessera::media
