// What all windows of a program have in common: the form, its name, and what its events write. The main
// window is told in janela.h, the others in overlaid_windows.h.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "values/run.h"
#include "values/value.h"
#include "windows/form_events.h"

namespace tessera {

class Form;
struct WindowModel;

class ProgramWindow : public FormEvents {
 public:
  ProgramWindow(Run& run, WindowModel& windows);
  ProgramWindow(const ProgramWindow&) = delete;
  ProgramWindow& operator=(const ProgramWindow&) = delete;
  ~ProgramWindow() override;

  Form& form() const { return *form_; }

  // The name under which an activation makes it the current window.
  virtual std::string_view Name() const = 0;
  // Whether this kind of window has the control array.
  virtual bool Carries(std::string_view /*array*/) const { return true; }
  // Closes the window by its own steps; that of the main window never returns.
  virtual void Unload() = 0;

  // Makes it the current window, by that name.
  void BecomeCurrent(std::string_view name);
  // Shows or hides the form. Hiding the active window activates the one below it.
  void Show();
  void Hide();
  // Shows it above `opener` as the only window that feels a person, and comes back when it is hidden; then
  // the opener is in front again. Failure 400 for a window that is shown already.
  void ShowModal(ProgramWindow& opener);

  // Lives while the stack holds a run of the window's code routine.
  class CodeRun {
   public:
    explicit CodeRun(ProgramWindow& window) : window_(window) { ++window_.codeRuns_; }
    ~CodeRun() { --window_.codeRuns_; }
    CodeRun(const CodeRun&) = delete;
    CodeRun& operator=(const CodeRun&) = delete;

   private:
    ProgramWindow& window_;
  };

  // True while the stack holds its code routine or its modal showing.
  bool InUse() const { return codeRuns_ > 0 || modalShowings_ > 0; }

  void OnActivate() override;
  void OnResize() override;
  void OnClose() override { Unload(); }
  void OnKeyDown(int keyCode, KeyShift shift) override;
  void OnKeyUp(int keyCode, KeyShift shift) override;
  void OnSinkKeyDown(int keyCode, KeyShift shift) override;
  void OnSinkKeyUp(int keyCode, KeyShift shift) override;
  bool OnKeyPress(char character) override;
  void OnClick() override;
  void OnDoubleClick() override;
  Grid PlacementGrid() const override;

 protected:
  void TellVariable(std::string_view name, const Value& value);

  Run& run_;
  WindowModel& windows_;
  std::unique_ptr<Form> form_;
  bool closing_ = false;
  int codeRuns_ = 0;

 private:
  void Activated();

  int modalShowings_ = 0;
};

}  // namespace tessera
