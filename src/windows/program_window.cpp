#include "windows/program_window.h"

#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/event_state.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

ProgramWindow::ProgramWindow(Run& run, WindowModel& windows) : run_(run), windows_(windows) {}

ProgramWindow::~ProgramWindow() {
  windows_.activation.Remove(*this);
}

void ProgramWindow::BecomeCurrent(std::string_view name) {
  windows_.MakeCurrent(*this, name);
}

void ProgramWindow::Show() {
  windows_.activation.BringToFront(*this);
  form_->SetVisible(true);
}

void ProgramWindow::ShowModal(ProgramWindow& opener) {
  if (form_->Visible())
    throw RunFailure(400, "A janela já está aberta e não pode ser aberta como estática"_w);
  if (opener.form_->Visible()) windows_.activation.BringToFront(opener);
  windows_.activation.BringToFront(*this);
  windows_.modal.Open(*form_);
  ++modalShowings_;
  form_->ShowModal(*opener.form_);
  --modalShowings_;
}

void ProgramWindow::Hide() {
  windows_.modal.Close(*form_);
  const bool wasActive = windows_.activation.Active() == this;
  windows_.activation.Remove(*this);
  form_->SetVisible(false);
  ProgramWindow* below = windows_.activation.Active();
  if (!wasActive || below == nullptr) return;
  below->form_->Activate();
  below->Activated();
}

// A host may tell of the same activation again, later than the program saw it.
void ProgramWindow::OnActivate() {
  if (windows_.activation.Active() == this) return;
  windows_.activation.BringToFront(*this);
  Activated();
}

void ProgramWindow::Activated() {
  if (run_.RunningFlag) BecomeCurrent(Name());
}

void ProgramWindow::OnResize() {
  windows_.events.EventoRedim = "REDIMENSIONOU " + Upper(Name());
  if (form_->GrdAtivo) form_->Grd.Repaint(*form_);
}

void ProgramWindow::OnKeyDown(int keyCode, KeyShift) {
  if (keyCode == kKeyPause || keyCode == kKeyF6) run_.doors.UnloadMainWindow();
}

void ProgramWindow::OnKeyUp(int keyCode, KeyShift) {
  windows_.events.Keys.KeyUpInWindow(keyCode);
}

void ProgramWindow::OnSinkKeyDown(int keyCode, KeyShift shift) {
  windows_.events.SinkKeyDown(keyCode, shift);
}

void ProgramWindow::OnSinkKeyUp(int keyCode, KeyShift) {
  windows_.events.Keys.KeyUp(keyCode);
}

// Enter presses a button that has the focus; elsewhere it moves the focus on.
bool ProgramWindow::OnKeyPress(char character) {
  if (character != kKeyEnter || !form_->KeyPreview || closing_) return false;
  const Control* focus = form_->Focus();
  if (focus != nullptr && focus->TakesEnter()) return false;
  form_->FocusNext();
  return true;
}

void ProgramWindow::OnClick() {
  windows_.events.EventoClique = "CLIQUE";
  TellVariable("CliqueMouse", std::string("CLIQUE"));
}

// OPEN: a double click is a pending click of its own word, as `CliqueMouse` tells it.
void ProgramWindow::OnDoubleClick() {
  windows_.events.EventoClique = "DUPLOCLIQUE";
  TellVariable("CliqueMouse", std::string("DUPLOCLIQUE"));
}

Grid ProgramWindow::PlacementGrid() const {
  return {double(windows_.TamLin), double(windows_.TamCol)};
}

// OPEN: an event whose variable the program has removed changes nothing, and is no failure of the statement
// that lets events through.
void ProgramWindow::TellVariable(std::string_view name, const Value& value) {
  Guard([&] { run_.variables.VarWrite(name, value, true); });
}

}  // namespace tessera
