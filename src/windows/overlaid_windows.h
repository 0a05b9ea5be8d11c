// The windows that a program defines beside the main one: the command `NovaJanela`, which opens them with
// their code routines, and their closing. A static window is modal and holds the statement that opened it; a
// dynamic one stays open behind its routine.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "commands/arguments.h"
#include "commands/form_table.h"
#include "engine/engine.h"
#include "platform/host.h"
#include "values/run.h"
#include "windows/janela_command.h"
#include "windows/program_window.h"
#include "windows/window_model.h"
#include "windows/window_settings.h"

namespace tessera {

class Display;

// The kinds of window, by the names of their classes.
enum class WindowKind {
  Form1,  // framed
  Form2,  // of fixed size
  Form3,  // without control box
};

class OverlaidWindow final : public ProgramWindow {
 public:
  // `name` without quotes.
  OverlaidWindow(Run& run, WindowModel& windows, Display& display, WindowKind kind, std::string_view name);

  // The caption stores the name for the activation.
  std::string_view Name() const override;

  // Query-close and unload. The window can be opened again; its objects and what was printed on it are gone.
  void Unload() override;

  bool Carries(std::string_view array) const override;

 private:
  void LoadStanding();

  WindowKind kind_;
};

class OverlaidWindows {
 public:
  // All outlive it.
  OverlaidWindows(Run& run, Engine& engine, Display& display, WindowModel& windows);

  // `arguments` is the text behind the word `NovaJanela`.
  void NovaJanela(std::string_view arguments);

  // Ends the timers that start code routines.
  void StopTimers();

 private:
  static constexpr std::size_t kTimers = 5;

  struct WindowTimer {
    bool enabled = false;
    std::unique_ptr<Timer> timer;  // none once its tick has come
  };

  // A suffix of a window, with its values.
  using Suffixes = FormTable<void (OverlaidWindows::*)(WindowSlot& slot, const ArgumentView& values)>;
  static Suffixes AllSuffixes();

  void Define(const Arguments& arguments);
  void TamanhoPonto(WindowSlot& slot, const ArgumentView& values);
  void Resolucao(WindowSlot& slot, const ArgumentView& values);
  void Tamanho(WindowSlot& slot, const ArgumentView& values);
  void Posicao(WindowSlot& slot, const ArgumentView& values);
  void Fundo(WindowSlot& slot, const ArgumentView& values);
  void Borda(WindowSlot& slot, const ArgumentView& values);
  void Visivel(WindowSlot& slot, const ArgumentView& values);
  void Deactivate(WindowSlot& slot, const ArgumentView& values);
  void Use(WindowSlot& slot, const ArgumentView& values);
  void Activate(WindowSlot& slot, const ArgumentView& values);
  void ActivateDynamic(WindowSlot& slot);
  void ActivateStatic(WindowSlot& slot);
  void ShowModeless(WindowSlot& slot);
  void EnableTimer();
  void OnWindowCodeTimer(std::size_t index);
  void RunWindowCode();
  void DropRetired();

  Run& run_;
  Engine& engine_;
  Display& display_;
  WindowModel& windows_;

  // The windows that are defined, and those given up that something may still hold.
  std::vector<std::unique_ptr<OverlaidWindow>> all_;
  std::array<WindowTimer, kTimers> TimerJanela_;
  std::array<ProgramWindow*, kTimers> WindowStack_{};
  // The routine that the last activation started, and its window.
  std::string WindowCodeName_;
  ProgramWindow* codeWindow_ = nullptr;

  const Word& word_ = *FindWord("NovaJanela");
  const Suffixes suffixes_ = AllSuffixes();
};

}  // namespace tessera
