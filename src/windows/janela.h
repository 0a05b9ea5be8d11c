// The main window, `Janela`: its start, the first activation in which the whole program runs, and its
// closing, which ends the process.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "commands/command_table.h"
#include "engine/engine.h"
#include "platform/start_form.h"
#include "prepare/prepare.h"
#include "values/run.h"
#include "windows/janela_command.h"
#include "windows/overlaid_windows.h"
#include "windows/program_window.h"
#include "windows/window_model.h"

namespace tessera {

class Display;

// How the first activation ended.
enum class RunOutcome {
  Ended,      // the program's text came to its end
  Abandoned,  // a failure reached the outermost guard
  Refused,    // the block check failed: no line ran
};

// The table of windows stands before the windows that take themselves out of it when they go.
struct OwnedWindows {
  OwnedWindows(Run& run, PictureCodecFinder pictures) : model(run, std::move(pictures)) {}

  WindowModel model;
};

class Janela final : private OwnedWindows, public ProgramWindow {
 public:
  // All outlive the window, which binds its own command.
  Janela(CommandTable& table, Run& run, Engine& engine, Display& display, PictureCodecFinder pictures);
  ~Janela() override;

  WindowModel& windows() { return windows_; }

  // The window form that whoever starts the program asks for.
  void StartAs(StartForm form) { startForm_ = form; }

  // Start, then events until the window is closed. The process' exit status: 0, 1 for a program that was
  // refused or abandoned, or the host's own.
  int RunProgram(const EditorTexts& editors, std::string_view projectStyleWord);

  // Load and first activation; left by `ProcessEnd` where the program closes its window.
  RunOutcome Start(const EditorTexts& editors, std::string_view projectStyleWord);

  // Closes the main window: query-close and unload. Never returns, but throws `ProcessEnd`.
  [[noreturn]] void Unload() override;

  std::string_view Name() const override { return kMainWindowName; }
  void OnResize() override;
  void OnMouseDown(MouseButton button, double x, double y) override;
  void OnMouseMove(double x, double y) override;
  void OnMouseUp(MouseButton button, double x, double y) override;
  void OnClick() override;

 private:
  void Load();
  RunOutcome FirstActivation(const EditorTexts& editors, std::string_view projectStyleWord);
  void ShowFirst();
  void SetLooks();
  bool Prepare(const EditorTexts& editors);
  void TakePointer(double x, double y);
  void Drag(double x, double y);
  void ClearWindowObjects();

  Engine& engine_;
  Display& display_;
  JanelaCommand command_;
  OverlaidWindows overlaid_;
  StartForm startForm_ = StartForm::Normal;
  std::unique_ptr<Timer> Timer1_;
};

}  // namespace tessera
