#include "windows/janela.h"

#include <chrono>
#include <cmath>

#include "commands/command_table.h"
#include "platform/failure.h"
#include "platform/process_end.h"
#include "prepare/linking.h"
#include "text/one_based.h"
#include "windows/display.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr std::chrono::milliseconds kTick{10};
constexpr std::chrono::milliseconds kClickPause{100};

// Place of a button in the text of the mouse buttons.
constexpr std::size_t IndexOf(MouseButton button) {
  return button == MouseButton::Left ? 0 : 1;
}

WindowState StateOf(StartForm form) {
  switch (form) {
    case StartForm::Minimised:
    case StartForm::MinimisedWithoutFocus:
      return WindowState::Minimised;
    case StartForm::Maximised:
      return WindowState::Maximised;
    case StartForm::Hidden:
    case StartForm::Normal:
    case StartForm::NormalWithoutFocus:
      break;
  }
  return WindowState::Normal;
}

constexpr std::string_view kHiddenWord = "IniciaJanelaInvisivel";
constexpr std::string_view kTransparentWord = "JanelaTransparente";
constexpr std::string_view kBorderlessWord = "SemBorda";

}  // namespace

Janela::Janela(CommandTable& table, Run& run, Engine& engine, Display& display, PictureCodecFinder pictures)
    : OwnedWindows(run, std::move(pictures)),
      ProgramWindow(run, OwnedWindows::model),
      engine_(engine),
      display_(display),
      command_(table, run, display, windows_),
      overlaid_(run, engine, display, windows_) {
  run_.doors.UnloadMainWindow = [this] { Unload(); };
}

Janela::~Janela() = default;

int Janela::RunProgram(const EditorTexts& editors, std::string_view projectStyleWord) {
  int status = 0;
  try {
    const RunOutcome outcome = Start(editors, projectStyleWord);
    if (outcome != RunOutcome::Ended) status = 1;
    // OPEN: a refused program's window was never shown and nobody could close it, so the process ends.
    while (outcome != RunOutcome::Refused) {
      // Behind the program's end nobody waits whom an event's failure could end; the window stays.
      const auto failure = Guard([&] { display_.ServeEvents(); });
      if (!failure) break;
      display_.TellAbandonedRun(SourcePositionText(run_), failure->description());
      status = 1;
    }
  } catch (const ProcessEnd& end) {
    if (end.status != 0) status = end.status;
  }
  return status;
}

void Janela::Load() {
  run_.RunningFlag = true;
  run_.StopFlag = false;
  run_.WindowCodeStopFlag = false;
  form_ = display_.NewMainForm(Centred(kMainWindowSize, display_.ScreenExtent()), *this, windows_);
  const ScreenSize screen = display_.ScreenExtent();
  Placement place = form_->Place();
  place.Top = (screen.Height - place.Height) / 2;
  place.Left = (screen.Width - place.Width) / 2;
  form_->Move(place);
}

RunOutcome Janela::Start(const EditorTexts& editors, std::string_view projectStyleWord) {
  Load();
  RunOutcome outcome = RunOutcome::Ended;
  // The outermost guard: a failure abandons the run without a word of ours, and the window stays.
  const auto failure = Guard([&] { outcome = FirstActivation(editors, projectStyleWord); });
  if (!failure) return outcome;
  display_.TellAbandonedRun(SourcePositionText(run_), failure->description());
  return RunOutcome::Abandoned;
}

RunOutcome Janela::FirstActivation(const EditorTexts& editors, std::string_view projectStyleWord) {
  form_->SetVisible(false);
  windows_.Reset(*this);
  form_->SetCaption(kMainWindowName);
  SetLooks();
  if (projectStyleWord == kTransparentWord) {
    WindowStyle style = form_->Style();
    style.Titlebar = style.ControlBox = style.Sizable = false;
    form_->SetStyle(style);
  }
  if (projectStyleWord == kBorderlessWord) SetBorder(*form_, false);
  if (!Prepare(editors)) return RunOutcome::Refused;
  WriteGridVariables(run_, windows_, display_.ScreenExtent());
  ShowFirst();
  engine_.RunStatements(run_.program.ProgramText, 0);
  return RunOutcome::Ended;
}

// OPEN: a form that was asked for is that of the first showing, and a program started hidden shows its window
// when it says so itself.
void Janela::ShowFirst() {
  const StartForm form = startForm_;
  form_->ShowWithoutFocus = form == StartForm::NormalWithoutFocus || form == StartForm::MinimisedWithoutFocus;
  form_->SetState(StateOf(form));
  if (form != StartForm::Hidden && !Contains(run_.program.ProgramText->text(), kHiddenWord)) Show();
}

void Janela::SetLooks() {
  form_->DrawWidth = 1;
  form_->SetCaption("Tessera - " + run_.ProgramFileName);
  form_->SetBackColor(kButtonFaceColour);
  form_->ForeColor = kButtonTextColour;
  form_->Font = {};
  form_->Cls();
}

// False when the block check refuses the program.
bool Janela::Prepare(const EditorTexts& editors) {
  const auto showCritical = [this](std::string_view text) { ShowCritical(run_, text); };
  InstallProgram(run_, PrepareProgram(editors, showCritical));
  if (run_.program.routines.HasTimersFlag) {
    Timer1_ = run_.host.events.StartTimer(kTick, [this] {
      engine_.OnTickTimer();
      windows_.OnYield();
    });
  }
  const std::string problem = CheckBlocks(run_.program.ProgramText->text());
  if (problem.empty()) return true;
  showCritical(problem);
  return false;
}

void Janela::Unload() {
  // Query-close
  run_.RunningFlag = false;
  ClearWindowObjects();
  // Unload: what else the run holds open is let go while its owners are left behind.
  closing_ = true;
  windows_.events.WindowDragFlag = false;
  form_->SetVisible(false);
  throw ProcessEnd{};
}

void Janela::ClearWindowObjects() {
  overlaid_.StopTimers();
  Timer1_.reset();
  command_.StopTimers();
  if (windows_.objects != nullptr) windows_.objects->ClearMainWindow();
}

void Janela::OnResize() {
  ProgramWindow::OnResize();
  if (windows_.FixedWindow && form_->State() == WindowState::Maximised) form_->SetState(WindowState::Normal);
}

void Janela::TakePointer(double x, double y) {
  if (command_.MouseGeral()) return;
  TellVariable("LinhaMouse", std::floor(y / windows_.TamLin + 0.5));
  TellVariable("ColunaMouse", std::floor(x / windows_.TamCol + 0.5));
}

void Janela::OnMouseDown(MouseButton button, double x, double y) {
  EventState& events = windows_.events;
  events.MouseButtonsText[IndexOf(button)] = '1';
  if (button == MouseButton::Left && events.WindowDragFlag) {
    events.WindowDragStartX = static_cast<float>(TwipsOfPixels(x));
    events.WindowDragStartY = static_cast<float>(TwipsOfPixels(y));
    return;
  }
  TakePointer(x, y);
}

void Janela::OnMouseMove(double x, double y) {
  const EventState& events = windows_.events;
  if (events.WindowDragFlag && events.MouseButtonsText[IndexOf(MouseButton::Left)] == '1') return Drag(x, y);
  TakePointer(x, y);
}

void Janela::Drag(double x, double y) {
  Placement to = form_->Place();
  to.Left += TwipsOfPixels(x) - double{windows_.events.WindowDragStartX};
  to.Top += TwipsOfPixels(y) - double{windows_.events.WindowDragStartY};
  form_->Move(to);
}

void Janela::OnMouseUp(MouseButton button, double x, double y) {
  windows_.events.MouseButtonsText[IndexOf(button)] = '0';
  TakePointer(x, y);
}

void Janela::OnClick() {
  ProgramWindow::OnClick();
  run_.host.events.Pause(kClickPause);
}

}  // namespace tessera
