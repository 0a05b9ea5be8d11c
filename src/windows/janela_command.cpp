#include "windows/janela_command.h"

#include <chrono>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/program_window.h"
#include "windows/screen.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr std::chrono::milliseconds kPointerPoll{50};
constexpr std::string_view kYes = "SIM";
constexpr std::string_view kNo = "NAO";

}  // namespace

struct JanelaCommand::Keyword {
  std::string_view word;
  // `place` is that of the first value.
  void (JanelaCommand::*set)(const Settings& settings, std::size_t place);
};

void JanelaCommand::Do(std::string_view arguments) {
  static constexpr Keyword kKeywords[] = {
      {"TAMANHOPONTO", &JanelaCommand::TamanhoPonto},
      {"FIXA", &JanelaCommand::Fixa},
      {"BOX", &JanelaCommand::Box},
      {"ATIVAENTER", &JanelaCommand::AtivaEnter},
      {"ATIVACURSOR", &JanelaCommand::AtivaCursor},
      {"VISIVEL", &JanelaCommand::Visivel},
      {"MOUSEGERAL", &JanelaCommand::SetMouseGeral},
      {"MOUSEICONE", &JanelaCommand::MouseIcone},
      {"RESOLUCAO", &JanelaCommand::Resolucao},
      {"TAMANHO", &JanelaCommand::Tamanho},
      {"POSICAO", &JanelaCommand::Posicao},
      {"FUNDO", &JanelaCommand::Fundo},
      {"RESVIDEO", &JanelaCommand::ResVideo},
      {"BORDA", &JanelaCommand::Borda},
  };
  const Settings settings(run_, arguments);
  for (std::size_t place = 0; place < Settings::kPlaces && !settings.Raw(place).empty(); ++place) {
    const std::string word = Upper(Trim(settings.Raw(place)));
    for (const Keyword& keyword : kKeywords) {
      if (keyword.word == word) (this->*keyword.set)(settings, place + 2);
    }
  }
}

void JanelaCommand::TamanhoPonto(const Settings& settings, std::size_t place) {
  windows_.MainWindow->DrawWidth = settings.Number(place).ToInteger();
}

void JanelaCommand::Fixa(const Settings& settings, std::size_t place) {
  windows_.FixedWindow = settings.Word(place) == kYes;
  WindowStyle style = windows_.MainWindow->Style();
  style.MinButton = style.MaxButton = !windows_.FixedWindow;
  windows_.MainWindow->SetStyle(style);
}

void JanelaCommand::Box(const Settings& settings, std::size_t place) {
  WindowStyle style = windows_.MainWindow->Style();
  style.ControlBox = settings.Word(place) != kNo;
  windows_.MainWindow->SetStyle(style);
}

void JanelaCommand::AtivaEnter(const Settings& settings, std::size_t place) {
  windows_.MainWindow->KeyPreview = settings.Word(place) == kYes;
}

void JanelaCommand::AtivaCursor(const Settings& settings, std::size_t place) {
  screen_.ShowPointer(settings.Word(place) == kYes);
}

void JanelaCommand::Visivel(const Settings& settings, std::size_t place) {
  ProgramWindow& main = *windows_.slots[0].owner;
  if (settings.Word(place) == kYes) {
    main.Show();
  } else {
    main.Hide();
  }
}

void JanelaCommand::SetMouseGeral(const Settings& settings, std::size_t place) {
  mouseGeral_ = settings.Word(place) == kYes;
  if (mouseGeral_ && !Timer3_) Timer3_ = run_.host.events.StartTimer(kPointerPoll, [this] { OnTimer3(); });
}

void JanelaCommand::OnTimer3() {
  if (!mouseGeral_) return;
  const PointerPlace at = screen_.Pointer();
  // A variable that the program has removed is passed over, as with every event.
  Guard([&] {
    run_.variables.VarWrite("LinhaMouse", NumberText(at.y), true);
    run_.variables.VarWrite("ColunaMouse", NumberText(at.x), true);
  });
}

void JanelaCommand::MouseIcone(const Settings& settings, std::size_t place) {
  SetMouseIcone(run_, windows_, settings.Raw(place));
}

void JanelaCommand::Resolucao(const Settings& settings, std::size_t place) {
  SetResolution(run_, windows_, screen_.ScreenExtent(), *windows_.MainWindow, settings, place);
}

void JanelaCommand::Tamanho(const Settings& settings, std::size_t place) {
  SetSize(*windows_.MainWindow, screen_.ScreenExtent(), settings, place);
}

void JanelaCommand::Posicao(const Settings& settings, std::size_t place) {
  SetPosition(*windows_.MainWindow, screen_.ScreenExtent(), settings, place, PositionNumbers::Literal);
}

void JanelaCommand::Fundo(const Settings& settings, std::size_t place) {
  SetFundo(run_, windows_, *windows_.CurrentForm, FundoOf(settings, place), StockNames::Known);
}

void JanelaCommand::ResVideo(const Settings& settings, std::size_t place) {
  const VideoMode mode{.width = settings.Number(place).ToInteger(),
                       .height = settings.Number(place + 1).ToInteger(),
                       .bits = settings.Number(place + 2).ToInteger()};
  const std::string reason = screen_.SetVideoMode(mode);
  if (reason.empty()) return;
  // OPEN: a mode that the screen refuses is told in a box, and the program goes on in the mode it has.
  ShowCritical(run_, std::string("Não foi possível mudar o vídeo para "_w)
                         .append(std::to_string(mode.width))
                         .append(" x ")
                         .append(std::to_string(mode.height))
                         .append(": ")
                         .append(reason));
}

void JanelaCommand::Borda(const Settings& settings, std::size_t place) {
  SetBorder(*windows_.MainWindow, settings.Word(place) != kNo);
}

FundoArguments FundoOf(const Settings& settings, std::size_t place) {
  return {.value = settings.Raw(place), .line = settings.Raw(place + 1), .column = settings.Raw(place + 2)};
}

void SetBorder(Form& form, bool border) {
  WindowStyle style = form.Style();
  style.Titlebar = border;
  style.Sizable = false;
  form.SetStyle(style);
}

}  // namespace tessera
