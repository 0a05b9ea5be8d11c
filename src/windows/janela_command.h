// The command `Janela`: keywords and values, several on a line, that set the main window.
#pragma once

#include <memory>

#include "commands/arguments.h"
#include "commands/form_table.h"
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
  // All outlive the command, and the command lives as long as the table is used.
  JanelaCommand(CommandTable& table, Run& run, Screen& screen, WindowModel& windows);
  JanelaCommand(const JanelaCommand&) = delete;
  JanelaCommand& operator=(const JanelaCommand&) = delete;

  // True while pointer positions are those of the screen and not of the main window.
  bool MouseGeral() const { return mouseGeral_; }

  // Ends the timer that polls the pointer.
  void StopTimers() { Timer3_.reset(); }

 private:
  using Keywords = FormTable<void (JanelaCommand::*)(const ArgumentView& values)>;
  static Keywords AllKeywords();

  Value Do(const WordCall& call);

  void TamanhoPonto(const ArgumentView& values);
  void Fixa(const ArgumentView& values);
  void Box(const ArgumentView& values);
  void AtivaEnter(const ArgumentView& values);
  void AtivaCursor(const ArgumentView& values);
  void Visivel(const ArgumentView& values);
  void SetMouseGeral(const ArgumentView& values);
  void MouseIcone(const ArgumentView& values);
  void Resolucao(const ArgumentView& values);
  void Tamanho(const ArgumentView& values);
  void Posicao(const ArgumentView& values);
  void Fundo(const ArgumentView& values);
  void ResVideo(const ArgumentView& values);
  void Borda(const ArgumentView& values);

  void OnTimer3();

  Run& run_;
  Screen& screen_;
  WindowModel& windows_;
  bool mouseGeral_ = false;
  std::unique_ptr<Timer> Timer3_;
  const Keywords keywords_ = AllKeywords();
};

// "BORDA": no frame at all, or a title and a frame that keeps its size.
void SetBorder(Form& form, bool border);

}  // namespace tessera
