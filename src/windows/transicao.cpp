#include "windows/transicao.h"

#include <algorithm>
#include <string>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr std::int32_t kFull = 255;

// Each channel between two, a half away from the first one; exact at both ends.
Pixel Mixed(Pixel first, Pixel second, Pixel opacity) {
  Pixel mixed = 0;
  for (const int shift : {0, 8, 16, 24}) {
    const Pixel sum = (first >> shift & 0xFF) * (kFull - opacity) + (second >> shift & 0xFF) * opacity;
    mixed |= (sum + kFull / 2) / kFull << shift;
  }
  return mixed;
}

}  // namespace

PictureRef AlphaBlend(const Picture& first, const Picture& second, std::int32_t opacity) {
  Picture blended{.raster = first.raster};
  const int width = std::min(first.size().width, second.size().width);
  const int height = std::min(first.size().height, second.size().height);
  for (int y = 0; y < height; ++y) {
    Pixel* row = blended.raster.Row(y);
    const Pixel* over = second.raster.Row(y);
    for (int x = 0; x < width; ++x) row[x] = Mixed(row[x], over[x], static_cast<Pixel>(opacity));
  }
  return std::make_shared<const Picture>(std::move(blended));
}

Transicao::Transicao(CommandTable& table, WindowModel& windows) : windows_(windows) {
  constexpr MemberRow<Transicao> kRows[] = {{"Transicao", &Transicao::Do}};
  Bind(table, kRows, *this);
}

Value Transicao::Do(const WordCall& call) {
  const Arguments arguments(call);
  const std::string word = arguments.Word("palavra");
  const WordForm* form = FindForm(call.word.more.keywords, word);
  if (form == nullptr) return {};
  const ArgumentView values = arguments.As(form->arguments, 1);
  if (word == "POSICAO") {
    const double line = values.Number("linha").ToDouble();
    const double column = values.Number("coluna").ToDouble();
    at_ = {.x = RoundToInteger(column * windows_.TamCol), .y = RoundToInteger(line * windows_.TamLin)};
  } else if (word == "FIGURAINICIAL") {
    Load(call.run, values.Text("arquivo"), PicAux_, "inicial");
  } else if (word == "FIGURAFINAL") {
    Load(call.run, values.Text("arquivo"), PicAlphaBlend_, "final");
  } else {
    Draw(std::clamp(values.Number("opacidade").ToInteger(), 0, kFull));
  }
  return {};
}

void Transicao::Load(Run& run, const std::string& path, PictureRef& into, std::string_view which) {
  PictureRef picture = windows_.pictures.OfFile(path);
  if (picture) {
    into = std::move(picture);
    return;
  }
  ShowCritical(run, std::string("Caminho da figura "_w)
                        .append(which)
                        .append(" não encontrado:"_w)
                        .append(kCrLf)
                        .append(path));
}

void Transicao::Draw(std::int32_t opacity) {
  if (!PicAux_ || !PicAlphaBlend_) return;
  windows_.CurrentForm().PaintPicture(AlphaBlend(*PicAux_, *PicAlphaBlend_, opacity), at_);
}

}  // namespace tessera
