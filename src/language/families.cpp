#include "language/families.h"

#include <algorithm>

#include "language/types.h"
#include "text/one_based.h"

namespace tessera {

namespace {

using enum Carried;

constexpr std::array<Companion, 2> kTxt = {{{".Txt", kTypeString}}};
constexpr std::array<Companion, 2> kValor = {{{".Valor", kTypeInteiro}}};
constexpr std::array<Companion, 2> kAmount = {{{".Valor", kTypeDecimal}}};
constexpr std::array<Companion, 2> kPlaying = {{{".Tempo", kTypeDecimal}, {".Posicao", kTypeDecimal}}};

constexpr Family kFamilies[] = {
    {"Botao", {"BtnNovo"}, Everywhere},
    {"Texto", {"Texto", "MultiLine"}, Everywhere, kTxt},
    {"Rotulo", {"LblRotulo"}, MainAlone, kTxt},
    {"Mascara", {"TxtMask"}, Everywhere, kTxt},
    {"Moeda", {"TxtNum"}, Everywhere, kAmount},
    {"Check", {"Chk"}, Everywhere, kValor},
    {"Opcao", {"Opc"}, Everywhere, kValor},
    {"Combo", {"Cmb"}, Everywhere, kTxt},
    {"Calendario", {"TxtCal"}, Everywhere, kTxt},
    {"BarraRolagem", {"BarHor", "BarVer"}, Everywhere, kValor},
    {"Box", {"GrdLstB"}, Everywhere, kTxt},
    {"Moldura", {"SpFrame"}, MainAlone},
    {"Link", {"TxtLink"}, MainAlone},
    {"MenuSistema", {"Guia"}, Framed},
    {"Figura", {"Figura", "FiguraMasc"}, MainAlone},
    {"Imagem", {"Img"}, MainAlone},
    {"GifAnimado", {"GifAni", "AniGif"}, Everywhere, {}, true},
    {"Som", {"MediaPlayer"}, MainAlone, kPlaying},
    {"Video", {"MediaPlayer"}, MainAlone, kPlaying},
    {"Navegador", {"Navegador"}, Everywhere},
};

}  // namespace

std::span<const Family> Families() {
  return kFamilies;
}

const Family* FamilyOf(std::string_view word) {
  for (const Family& family : kFamilies) {
    if (EqualsIgnoringCase(family.word, word)) return &family;
  }
  return nullptr;
}

Carried CarriedBy(std::string_view array) {
  for (const Family& family : kFamilies) {
    const auto found = std::find(family.arrays.begin(), family.arrays.end(), array);
    if (array.empty() || found == family.arrays.end()) continue;
    return family.secondOnMainAlone && found != family.arrays.begin() ? MainAlone : family.carried;
  }
  return Everywhere;
}

}  // namespace tessera
