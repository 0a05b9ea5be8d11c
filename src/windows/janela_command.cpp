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

JanelaCommand::Keywords JanelaCommand::AllKeywords() {
  constexpr Keywords::Row kRows[] = {
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
  return {FindWord("Janela")->more.keywords, {kRows}};
}

JanelaCommand::JanelaCommand(CommandTable& table, Run& run, Screen& screen, WindowModel& windows)
    : run_(run), screen_(screen), windows_(windows) {
  constexpr MemberRow<JanelaCommand> kRows[] = {{"Janela", &JanelaCommand::Do}};
  Bind(table, kRows, *this);
}

Value JanelaCommand::Do(const WordCall& call) {
  const Arguments arguments(call);
  for (std::size_t place = 0; place < arguments.Places() && !arguments.Part(place).empty(); ++place) {
    const Keywords::Bound* keyword = keywords_.Find(Upper(Trim(arguments.Part(place))));
    if (keyword != nullptr) (this->*keyword->act)(arguments.As(keyword->form->arguments, place + 2));
  }
  return {};
}

void JanelaCommand::TamanhoPonto(const ArgumentView& values) {
  windows_.MainWindow().DrawWidth = values.Number("pixels").ToInteger();
}

void JanelaCommand::Fixa(const ArgumentView& values) {
  windows_.FixedWindow = values.Word("valor") == kYes;
  WindowStyle style = windows_.MainWindow().Style();
  style.MinButton = style.MaxButton = !windows_.FixedWindow;
  windows_.MainWindow().SetStyle(style);
}

void JanelaCommand::Box(const ArgumentView& values) {
  WindowStyle style = windows_.MainWindow().Style();
  style.ControlBox = values.Word("valor") != kNo;
  windows_.MainWindow().SetStyle(style);
}

void JanelaCommand::AtivaEnter(const ArgumentView& values) {
  windows_.MainWindow().KeyPreview = values.Word("valor") == kYes;
}

void JanelaCommand::AtivaCursor(const ArgumentView& values) {
  screen_.ShowPointer(values.Word("valor") == kYes);
}

void JanelaCommand::Visivel(const ArgumentView& values) {
  ProgramWindow& main = windows_.Main();
  if (values.Word("valor") == kYes) {
    main.Show();
  } else {
    main.Hide();
  }
}

void JanelaCommand::SetMouseGeral(const ArgumentView& values) {
  mouseGeral_ = values.Word("valor") == kYes;
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

void JanelaCommand::MouseIcone(const ArgumentView& values) {
  SetMouseIcone(windows_, values.Text("arquivo"));
}

void JanelaCommand::Resolucao(const ArgumentView& values) {
  SetResolution(run_, windows_, screen_.ScreenExtent(), windows_.MainWindow(), values);
}

void JanelaCommand::Tamanho(const ArgumentView& values) {
  SetSize(windows_.MainWindow(), screen_.ScreenExtent(), values);
}

void JanelaCommand::Posicao(const ArgumentView& values) {
  SetPosition(windows_.MainWindow(), screen_.ScreenExtent(), values, PositionNumbers::Literal);
}

void JanelaCommand::Fundo(const ArgumentView& values) {
  SetFundo(run_, windows_, windows_.CurrentForm(), values, StockNames::Known);
}

void JanelaCommand::ResVideo(const ArgumentView& values) {
  const VideoMode mode{.width = values.Number("largura").ToInteger(),
                       .height = values.Number("altura").ToInteger(),
                       .bits = values.Number("bits").ToInteger()};
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

void JanelaCommand::Borda(const ArgumentView& values) {
  SetBorder(windows_.MainWindow(), values.Word("valor") != kNo);
}

void SetBorder(Form& form, bool border) {
  WindowStyle style = form.Style();
  style.Titlebar = border;
  style.Sizable = false;
  form.SetStyle(style);
}

}  // namespace tessera
