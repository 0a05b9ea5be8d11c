#include "windows/janela.h"

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "commands/command_table.h"
#include "platform/failure.h"
#include "platform/process_end.h"
#include "prepare/linking.h"
#include "text/one_based.h"
#include "values/builtin_variables.h"

namespace tessera {

namespace {

constexpr std::chrono::milliseconds kTick{10};
constexpr std::chrono::milliseconds kClickPause{100};

constexpr int kKeyPause = 19;
constexpr int kKeyF6 = 117;

constexpr std::string_view kHiddenWord = "IniciaJanelaInvisivel";
constexpr std::string_view kTransparentWord = "JanelaTransparente";

}  // namespace

Janela::Janela(Run& run, Engine& engine, Display& display) : run_(run), engine_(engine), display_(display) {
  run_.doors.UnloadMainWindow = [this] { Unload(); };
}

Janela::~Janela() = default;

int Janela::RunProgram(const EditorTexts& editors, std::string_view projectStyleWord) {
  int status = 0;
  try {
    const RunOutcome outcome = Start(editors, projectStyleWord);
    if (outcome != RunOutcome::Ended) status = 1;
    // OPEN: a refused program's window was never shown and nobody could close it, so the process ends.
    if (outcome != RunOutcome::Refused) display_.ServeEvents();
  } catch (const ProcessEnd& end) {
    if (end.status != 0) status = end.status;
  }
  return status;
}

void Janela::Load() {
  run_.RunningFlag = true;
  run_.StopFlag = false;
  run_.WindowCodeStopFlag = false;
  form_ = display_.NewMainForm(*this);
  const ScreenSize screen = display_.Screen();
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
  windows_.Reset(*form_);
  form_->SetCaption(kMainWindowName);
  SetLooks();
  DeclareBuiltins();
  if (projectStyleWord == kTransparentWord) form_->SetTitlebar(false);
  if (!Prepare(editors)) return RunOutcome::Refused;
  WriteGridVariables();
  if (!Contains(run_.program.ProgramText->text(), kHiddenWord)) {
    form_->SetState(WindowState::Normal);
    form_->SetVisible(true);
  }
  engine_.RunStatements(run_.program.ProgramText, 0);
  return RunOutcome::Ended;
}

void Janela::SetLooks() {
  form_->DrawWidth = 1;
  form_->SetCaption("Tessera - " + run_.ProgramFileName);
  form_->SetBackColor(kButtonFaceColour);
  form_->ForeColor = kButtonTextColour;
  form_->Font = {};
  form_->Cls();
}

void Janela::DeclareBuiltins() {
  DeclareBuiltinVariables(run_, {.folders = FindUserFolders(std::getenv),
                                 .fontCount = static_cast<std::int32_t>(display_.FontNames().size())});
}

// False when the block check refuses the program.
bool Janela::Prepare(const EditorTexts& editors) {
  run_.functionTable.Fill(LanguageWords());
  const auto showCritical = [this](std::string_view text) { ShowCritical(run_, text); };
  InstallProgram(run_, PrepareProgram(editors, showCritical));
  if (run_.program.routines.HasTimersFlag) {
    Timer1_ = run_.host.events.StartTimer(kTick, [this] { engine_.OnTickTimer(); });
  }
  const std::string problem = CheckBlocks(run_.program.ProgramText->text());
  if (problem.empty()) return true;
  showCritical(problem);
  return false;
}

void Janela::WriteGridVariables() {
  const ScreenSize screen = display_.Screen();
  const auto write = [&](std::string_view name, const Value& value) {
    run_.variables.VarWrite(name, value, true);
  };
  write("TamLin", std::int32_t{windows_.TamLin});
  write("TamCol", std::int32_t{windows_.TamCol});
  // In single precision; the two variables keep the nearest integer.
  write("AlturaTela", double{static_cast<float>(PixelsOfTwips(screen.Height) / windows_.TamLin)});
  write("LarguraTela", double{static_cast<float>(PixelsOfTwips(screen.Width) / windows_.TamCol)});
}

void Janela::Unload() {
  // Query-close
  run_.RunningFlag = false;
  ClearWindowObjects();
  // Unload: what else the run holds open is let go while its owners are left behind.
  form_->SetVisible(false);
  throw ProcessEnd{};
}

void Janela::ClearWindowObjects() {
  Timer1_.reset();
}

void Janela::OnActivate() {
  windows_.CurrentForm = form_.get();
  windows_.CurrentWindowName = kMainWindowName;
}

void Janela::OnClose() {
  Unload();
}

void Janela::OnKeyDown(int keyCode, KeyShift) {
  if (keyCode == kKeyPause || keyCode == kKeyF6) Unload();
}

// OPEN: an event whose variable the program has removed changes nothing, and is no failure of the statement
// that lets events through.
void Janela::TellVariable(std::string_view name, const Value& value) {
  Guard([&] { run_.variables.VarWrite(name, value, true); });
}

void Janela::TakePointer(double x, double y) {
  TellVariable("LinhaMouse", std::floor(y / windows_.TamLin + 0.5));
  TellVariable("ColunaMouse", std::floor(x / windows_.TamCol + 0.5));
}

void Janela::OnMouseDown(MouseButton, double x, double y) {
  TakePointer(x, y);
}

void Janela::OnMouseMove(double x, double y) {
  TakePointer(x, y);
}

void Janela::OnMouseUp(MouseButton, double x, double y) {
  TakePointer(x, y);
}

void Janela::OnClick() {
  TellVariable("CliqueMouse", std::string("CLIQUE"));
  run_.host.events.Pause(kClickPause);
}

void Janela::OnDoubleClick() {
  TellVariable("CliqueMouse", std::string("DUPLOCLIQUE"));
}

}  // namespace tessera
