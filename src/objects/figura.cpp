#include "objects/figura.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/picture_commands.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

Value Linha(const SuffixCall& call) {
  call.As<FiguraControl>().Top = RoundToInteger(call.Number().ToDouble() * call.frame.windows().TamLin);
  return {};
}

Value Coluna(const SuffixCall& call) {
  call.As<FiguraControl>().Left = RoundToInteger(call.Number().ToDouble() * call.frame.windows().TamCol);
  return {};
}

Value Desativa(const SuffixCall& call) {
  call.As<FiguraControl>().state = FiguraState::NotDrawn;
  return {};
}

// OPEN: a figure that is not drawn is drawn again where it is told its position; there is no other way back.
Value Posicao(const SuffixCall& call) {
  const std::string word = Upper(call.Word());
  if (word == "ATRAS") call.As<FiguraControl>().state = FiguraState::Behind;
  if (word == "FRENTE") call.As<FiguraControl>().state = FiguraState::InFront;
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ALTURA", suffix::Altura}, {".LARGURA", suffix::Largura}, {".LINHA", Linha},
    {".COLUNA", Coluna},         {".DESATIVA", Desativa},       {".POSICAO", Posicao},
};

// How much of the picture a size in pixels leaves.
int Part(double pixels) {
  return static_cast<int>(
      std::clamp(std::round(pixels), 0.0, double(std::numeric_limits<std::int16_t>::max())));
}

}  // namespace

FiguraControl::FiguraControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, {}) {}

Figura::Figura(ObjectFrame& frame) : ObjectFamily(frame, "Figura", kSuffixes) {}

std::shared_ptr<Control> Figura::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<FiguraControl>(form, *this, index);
}

void Figura::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& figure = static_cast<FiguraControl&>(control);
  figure.picture = nullptr;
  figure.state = FiguraState::Behind;
  figure.Move({});
  if (const PictureRef picture = PictureByName(run(), windows(), arguments.Text("imagem"))) {
    figure.picture = windows().pictures.Keyed(picture);
    figure.Move({.Width = double(picture->size().width), .Height = double(picture->size().height)});
  }
  figure.Top = RoundToInteger(Lines(arguments.Number("linha")));
  figure.Left = RoundToInteger(Columns(arguments.Number("coluna")));
}

void Figura::TellMissing(std::string_view, std::string_view) {
  ShowCritical(run(), std::string("Figura não existente!"_w).append(kCrLf).append(SourcePositionText(run())));
}

// The whole drawing comes to the screen at once.
Value Figura::DesenheFiguras(const WordCall& call) {
  const bool preserves = Contains(Upper(Arguments(call).Raw("fundo")), "PRESERVE");
  PlacedPictures drawn;
  for (const FiguraState pass : {FiguraState::Behind, FiguraState::InFront}) {
    for (const ObjectRow& row : Rows()) {
      const auto control = row.object.lock();
      if (!control || row.name.empty()) continue;
      const auto& figure = static_cast<const FiguraControl&>(*control);
      if (figure.state != pass || !figure.picture) continue;
      drawn.push_back({.picture = figure.picture,
                       .at = {.x = figure.Left, .y = figure.Top},
                       .part = {Part(figure.Place().Width), Part(figure.Place().Height)}});
    }
  }
  windows().CurrentForm().PaintPictures(drawn, !preserves);
  return {};
}

void Figura::BindDrawCommand(CommandTable& table) {
  constexpr MemberRow<Figura> kRows[] = {{"DesenheFiguras", &Figura::DesenheFiguras}};
  Bind(table, kRows, *this);
}

}  // namespace tessera
