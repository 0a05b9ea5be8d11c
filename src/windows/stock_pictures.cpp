#include "windows/stock_pictures.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <string>

#include "text/number.h"
#include "text/one_based.h"
#include "windows/stock_pixels.h"
#include "windows/stock_sources.h"

namespace tessera {

namespace {

constexpr std::array<std::string_view, 3> kLists = {
    "FigOK#0,FigSalvar#1,FigExcluir#2,FigSair#3,FigAbrir#4,FigNovo#5,FigImprimir#6,FigAdd#7,"
    "FigBinoculo#8,FigCifrao#9,FigPessoas#10,FigLupa#11,FigOk2#12,FigProibido#13,FigDesfaz#14,"
    "FigRefaz#15,FigSetaDir#16,FigSetaEsq#17,FigTools#18,FigDinheiro#19,FigSair2#20,FigForm#21,"
    "FigEng#22,FigLivro#23,FigLivros#24,FigBola#25,FigCal#26,FigChart#27,FigPasta#28,FigChaves#29,"
    "FigTerra#30,FigFalar#31,FigMonitor#32,",
    "ImgPantano#0,ImgSobre#1,",
    "GifSapo1#0,GifSapo2#1,GifSapa1#2,GifSapa2#3,",
};

std::string_view ListOf(StockKind kind) {
  return kLists[static_cast<std::size_t>(kind)];
}

// The whole name that stands with a number in its list.
std::string NameOf(StockKind kind, std::int32_t number) {
  const std::string_view entries = ListOf(kind);
  const std::size_t end = Find(entries, "#" + std::to_string(number) + ",");
  assert(end != 0);
  const std::string_view before = Left(entries, end - 1);
  const std::size_t comma = before.rfind(',');
  return std::string(comma == std::string_view::npos ? before : before.substr(comma + 1));
}

PictureRef Load(const std::string& name) {
  const auto sources = StockSources();
  const auto found =
      std::find_if(sources.begin(), sources.end(), [&](const StockSource& s) { return s.name == name; });
  if (found == sources.end()) return nullptr;
  return std::make_shared<const Picture>(Picture{.raster = StockPixels(found->qoi), .vector = found->svg});
}

}  // namespace

// KEPT: the end of a name is enough, and the empty name is the first of the list
// (StockPictures.ANameIsFoundWhereverItStandsBeforeItsNumber).
std::int32_t StockNumber(StockKind kind, std::string_view name) {
  const std::string_view entries = ListOf(kind);
  const std::string sought = std::string(name) + "#";
  const std::size_t at = Find(entries, sought);
  if (at == 0) return kNoStockNumber;
  const std::size_t numberAt = at + sought.size();
  return static_cast<std::int32_t>(
      LeadingNumber(Mid(entries, numberAt, Find(entries, ",", numberAt) - numberAt)));
}

PictureRef StockPicture(StockKind kind, std::int32_t number) {
  if (kind == StockKind::Animation) return StockFrames(number).front();
  return Load(NameOf(kind, number));
}

std::vector<PictureRef> StockSkin(std::int32_t number) {
  std::vector<PictureRef> skin;
  for (const char* state : {"_Up", "_High", "_Focus", "_Down", "_Disabled"}) {
    PictureRef picture = Load("Botao" + std::to_string(number) + state);
    if (!picture) return {};
    skin.push_back(std::move(picture));
  }
  return skin;
}

std::vector<PictureRef> StockFrames(std::int32_t number) {
  const std::string name = NameOf(StockKind::Animation, number);
  std::vector<PictureRef> frames;
  while (PictureRef frame = Load(name + "_" + std::to_string(frames.size()))) {
    frames.push_back(std::move(frame));
  }
  return frames;
}

}  // namespace tessera
