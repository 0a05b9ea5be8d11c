// The command `Janela`: keywords and values, several on a line, that set the main window.
#pragma once

#include <memory>
#include <string_view>

#include "platform/host.h"
#include "values/run.h"
#include "windows/picture_commands.h"
#include "windows/window_settings.h"

namespace tessera {

class Form;
class Screen;
struct WindowModel;

class JanelaCommand {
 public:
  // All outlive the command.
  JanelaCommand(Run& run, Screen& screen, WindowModel& windows)
      : run_(run), screen_(screen), windows_(windows) {}

  // The raw argument text behind the word `Janela`.
  void Do(std::string_view arguments);

  // True while pointer positions are those of the screen and not of the main window.
  bool MouseGeral() const { return mouseGeral_; }

  // Ends the timer that polls the pointer.
  void StopTimers() { Timer3_.reset(); }

 private:
  struct Keyword;

  void TamanhoPonto(const Settings& settings, std::size_t place);
  void Fixa(const Settings& settings, std::size_t place);
  void Box(const Settings& settings, std::size_t place);
  void AtivaEnter(const Settings& settings, std::size_t place);
  void AtivaCursor(const Settings& settings, std::size_t place);
  void Visivel(const Settings& settings, std::size_t place);
  void SetMouseGeral(const Settings& settings, std::size_t place);
  void MouseIcone(const Settings& settings, std::size_t place);
  void Resolucao(const Settings& settings, std::size_t place);
  void Tamanho(const Settings& settings, std::size_t place);
  void Posicao(const Settings& settings, std::size_t place);
  void Fundo(const Settings& settings, std::size_t place);
  void ResVideo(const Settings& settings, std::size_t place);
  void Borda(const Settings& settings, std::size_t place);

  void OnTimer3();

  Run& run_;
  Screen& screen_;
  WindowModel& windows_;
  bool mouseGeral_ = false;
  std::unique_ptr<Timer> Timer3_;
};

// The values of "FUNDO" as the program wrote them.
FundoArguments FundoOf(const Settings& settings, std::size_t place);

// "BORDA": no frame at all, or a title and a frame that keeps its size.
void SetBorder(Form& form, bool border);

}  // namespace tessera
