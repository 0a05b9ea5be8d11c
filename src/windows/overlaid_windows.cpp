#include "windows/overlaid_windows.h"

#include <algorithm>
#include <chrono>

#include "language/families.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/display.h"
#include "windows/form.h"

namespace tessera {

namespace {

// Slots below it can be opened statically.
constexpr std::size_t kStaticSlots = 5;

// OPEN: the tick comes with the first dispatch of the window, in a script's time too, where a millisecond of
// its own would never pass.
constexpr std::chrono::milliseconds kWindowCodeDelay{0};

WindowStyle StyleOf(WindowKind kind) {
  WindowStyle style;
  if (kind == WindowKind::Form2) style.Sizable = style.MinButton = style.MaxButton = false;
  if (kind == WindowKind::Form3) style.ControlBox = false;
  return style;
}

WindowKind KindOf(std::string_view word) {
  if (word == "FIXA") return WindowKind::Form2;
  if (word == "SEMBOX") return WindowKind::Form3;
  return WindowKind::Form1;
}

}  // namespace

OverlaidWindow::OverlaidWindow(Run& run, WindowModel& windows, Display& display, WindowKind kind,
                               std::string_view name)
    : ProgramWindow(run, windows), kind_(kind) {
  form_ = display.NewForm(name, Centred(kWindowSize, display.ScreenExtent()), *this);
  form_->SetCaption(name);
  form_->SetStyle(StyleOf(kind));
  LoadStanding();
}

std::string_view OverlaidWindow::Name() const {
  return form_->Caption();
}

void OverlaidWindow::LoadStanding() {
  if (windows_.objects != nullptr) windows_.objects->LoadStanding(*form_);
}

// OPEN: the flag stops the loops of the window's own routine. Closing a window whose routine has returned
// leaves it down, for nothing would clear it again, and the program that goes on would stop with it.
void OverlaidWindow::Unload() {
  // Query-close
  if (codeRuns_ > 0) run_.WindowCodeStopFlag = true;
  if (windows_.objects != nullptr) windows_.objects->ClearWindow(*form_);
  // Unload
  closing_ = true;
  Hide();
  form_->UnloadControls();
  LoadStanding();
  form_->Cls();
  closing_ = false;
}

bool OverlaidWindow::Carries(std::string_view array) const {
  const Carried carried = CarriedBy(array);
  return carried == Carried::Everywhere || (carried == Carried::Framed && kind_ == WindowKind::Form1);
}

OverlaidWindows::OverlaidWindows(Run& run, Engine& engine, Display& display, WindowModel& windows)
    : run_(run), engine_(engine), display_(display), windows_(windows) {
  run_.doors.NovaJanela = [this](std::string_view arguments) { NovaJanela(arguments); };
}

OverlaidWindows::Suffixes OverlaidWindows::AllSuffixes() {
  constexpr Suffixes::Row kRows[] = {
      {".TAMANHOPONTO", &OverlaidWindows::TamanhoPonto},
      {".RESOLUCAO", &OverlaidWindows::Resolucao},
      {".TAMANHO", &OverlaidWindows::Tamanho},
      {".POSICAO", &OverlaidWindows::Posicao},
      {".FUNDO", &OverlaidWindows::Fundo},
      {".BORDA", &OverlaidWindows::Borda},
      {".VISIVEL", &OverlaidWindows::Visivel},
      {".USE", &OverlaidWindows::Use},
      {".ATIVA", &OverlaidWindows::Activate},
      {".DESATIVA", &OverlaidWindows::Deactivate},
  };
  return {FindWord("NovaJanela")->more.suffixes, {kRows}};
}

void OverlaidWindows::NovaJanela(std::string_view text) {
  const Arguments arguments({run_, word_, word_.name, text});
  const std::string& first = arguments.Raw("palavra");
  if (Upper(first) == "DEFINE") return Define(arguments);
  const Position point = Find(first, ".");
  if (point == 0) return;
  WindowSlot* slot = windows_.FindSlot(Left(first, point - 1));
  if (slot == nullptr) return;
  const Position blank = Find(first, " ", point);
  const std::size_t length = blank == 0 ? std::string_view::npos : blank - point;
  const Suffixes::Bound* suffix = suffixes_.Find(Upper(Mid(first, point, length)));
  if (suffix == nullptr) return;
  // OPEN: a list of values stands behind a comma or behind an equals sign.
  const bool isList = suffix->form->values == Values::List && arguments.Part(1) != "=";
  (this->*suffix->act)(*slot, arguments.As(suffix->form->arguments, isList ? 1 : 2));
}

void OverlaidWindows::Define(const Arguments& arguments) {
  DropRetired();
  const std::string& name = arguments.Raw("nome");
  if (name.empty()) return;
  WindowSlot* const slot = windows_.FreeSlot();
  if (slot == nullptr) {
    return ShowCritical(run_, "Não foi possível definir janela: mais de 20 janelas definidas"_w);
  }
  slot->name = name;
  all_.push_back(std::make_unique<OverlaidWindow>(run_, windows_, display_, KindOf(arguments.Word("tipo")),
                                                  slot->BareName()));
  slot->owner = all_.back().get();
}

void OverlaidWindows::TamanhoPonto(WindowSlot& slot, const ArgumentView& values) {
  slot.window().DrawWidth = values.Number("pixels").ToInteger();
}

void OverlaidWindows::Resolucao(WindowSlot& slot, const ArgumentView& values) {
  SetResolution(run_, windows_, display_.ScreenExtent(), slot.window(), values);
}

void OverlaidWindows::Tamanho(WindowSlot& slot, const ArgumentView& values) {
  SetSize(slot.window(), display_.ScreenExtent(), values);
}

// OPEN: the suffix computes its numbers; only the keyword of `Janela` takes them as they are written.
void OverlaidWindows::Posicao(WindowSlot& slot, const ArgumentView& values) {
  SetPosition(slot.window(), display_.ScreenExtent(), values, PositionNumbers::Computed);
}

void OverlaidWindows::Fundo(WindowSlot& slot, const ArgumentView& values) {
  SetFundo(run_, windows_, slot.window(), values, StockNames::Unknown);
}

void OverlaidWindows::Borda(WindowSlot& slot, const ArgumentView& values) {
  SetBorder(slot.window(), values.Word("valor") != "NAO");
}

void OverlaidWindows::Visivel(WindowSlot& slot, const ArgumentView& values) {
  if (values.Word("valor") == "NAO") {
    slot.owner->Hide();
  } else {
    slot.owner->Show();
  }
}

// The window itself goes with a later `Define`, when nothing can hold it any more.
void OverlaidWindows::Deactivate(WindowSlot& slot, const ArgumentView&) {
  slot.name.clear();
  slot.owner->Unload();
}

void OverlaidWindows::DropRetired() {
  if (engine_.FunctionsInProgress() > 0) return;
  std::erase_if(all_, [this](const std::unique_ptr<OverlaidWindow>& window) {
    const bool isStacked =
        std::find(WindowStack_.begin(), WindowStack_.end(), window.get()) != WindowStack_.end();
    return !windows_.IsDefined(*window) && !isStacked && !window->InUse() && !windows_.IsCurrent(*window) &&
           codeWindow_ != window.get();
  });
}

void OverlaidWindows::Use(WindowSlot& slot, const ArgumentView&) {
  windows_.UseSurface({});
  slot.owner->BecomeCurrent(slot.BareName());
  const auto failure = Guard([&] { ShowModeless(slot); });
  if (!failure) return;
  ShowCritical(run_, "O comando 'NovaJanela Use' só pode ser utilizado em janelas dinâmicas!"_w);
}

// Failure 401 while a modal window is up.
void OverlaidWindows::ShowModeless(WindowSlot& slot) {
  if (windows_.modal.InHand() != nullptr) {
    throw RunFailure(401, "Uma janela dinâmica não pode ser aberta sobre uma janela estática"_w);
  }
  slot.owner->Show();
}

void OverlaidWindows::Activate(WindowSlot& slot, const ArgumentView& values) {
  const std::string mode = values.Word("modo");
  if (mode.empty() || mode == "DINAMICA") ActivateDynamic(slot);
  if (mode == "ESTATICA") ActivateStatic(slot);
}

void OverlaidWindows::ActivateDynamic(WindowSlot& slot) {
  const std::string name = slot.BareName();
  slot.owner->BecomeCurrent(name);
  slot.window().SetCaption(name);
  ShowModeless(slot);
  WindowCodeName_ = name + "_Codigo";
  codeWindow_ = slot.owner;
  RunWindowCode();
  windows_.Main().BecomeCurrent(kMainWindowName);
}

// KEPT: the limit is on the slot, not on how many windows are open, and the timer is enabled before it is
// looked at (programs.window_table_takes_twenty_and_static_ones_from_five_slots).
void OverlaidWindows::ActivateStatic(WindowSlot& slot) {
  const std::string name = slot.BareName();
  ProgramWindow& opener = windows_.CurrentOwner();
  slot.owner->BecomeCurrent(name);
  WindowCodeName_ = name + "_Codigo";
  codeWindow_ = slot.owner;
  EnableTimer();
  if (windows_.NumberOf(slot) >= kStaticSlots) {
    return ShowCritical(run_, "Não pode abrir janela estática, máximo de janelas sobrepostas = 5!"_w);
  }
  slot.window().SetCaption(name);
  slot.owner->ShowModal(&opener == slot.owner ? windows_.Main() : opener);
}

void OverlaidWindows::EnableTimer() {
  const auto free = std::find_if(TimerJanela_.begin(), TimerJanela_.end(),
                                 [](const WindowTimer& timer) { return !timer.enabled; });
  if (free == TimerJanela_.end()) return;
  free->enabled = true;
  const auto index = static_cast<std::size_t>(free - TimerJanela_.begin());
  free->timer = run_.host.events.StartTimer(kWindowCodeDelay, [this, index] { OnWindowCodeTimer(index); });
}

// The routine runs once: the timer stays enabled while it does, so that a window opened from it takes the
// next one, but ticks no more.
void OverlaidWindows::OnWindowCodeTimer(std::size_t index) {
  TimerJanela_[index].timer.reset();
  WindowStack_[index] = &windows_.Current();
  RunWindowCode();
  if (index == 0 || WindowStack_[index - 1] == nullptr) {
    windows_.Main().BecomeCurrent(kMainWindowName);
  } else {
    // KEPT: the name is that of the slot by the timer's number, whatever window stands there
    // (WindowsTest.BehindANestedRoutineTheNameIsThatOfASlot).
    windows_.UseSurface({});
    windows_.MakeCurrent(*WindowStack_[index - 1], Upper(windows_.NameOfSlot(index - 1)));
  }
  WindowStack_[index] = nullptr;
  TimerJanela_[index].enabled = false;
}

void OverlaidWindows::RunWindowCode() {
  run_.WindowCodeStopFlag = false;
  const ProgramWindow::CodeRun running(*codeWindow_);
  engine_.CallSub(WindowCodeName_ + "()");
  run_.WindowCodeStopFlag = false;
}

void OverlaidWindows::StopTimers() {
  for (WindowTimer& timer : TimerJanela_) timer = {};
}

}  // namespace tessera
