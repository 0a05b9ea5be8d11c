#include "language/spelling.h"

#include <algorithm>
#include <array>

#include "text/one_based.h"

namespace tessera {

namespace {

// Those of more than one word.
constexpr std::array kCompounds = std::to_array<std::string_view>({
    "AjustaImagem",  "AlteraCelula",   "AlturaLinha",  "AlturaPapel",  "AtivaCursor", "AtivaEnter",
    "CliqueBotao",   "CliqueBox",      "CliqueObjeto", "ColBoxRef",    "CorFundo",    "CorLetra",
    "FigClique",     "FigDestaque",    "FigFoco",      "FigInativo",   "FigSolto",    "FiguraFinal",
    "FiguraInicial", "FrameAnterior",  "FrameNumero",  "HDC",          "HWND",        "IndiceTab",
    "LeListagem",    "LePonto",        "LinBoxRef",    "LinIniList",   "LinListRef",  "LinhaReta",
    "MargemDireita", "MouseBotao",     "MouseGeral",   "MouseIcone",   "MouseX",      "MouseY",
    "MoveAnterior",  "MoveFoco",       "MovePrimeiro", "MoveProximo",  "MoveUltimo",  "NomeArquivo",
    "NomeFonte",     "NomeFuncao",     "NovaLinha",    "NovaPagina",   "PassoMaior",  "PassoMenor",
    "PosCursor",     "PosX",           "PosY",         "ProximoFrame", "ResVideo",    "SalvaFigura",
    "TamFonte",      "TamanhoPonto",   "TestaFimPag",  "TextoRTF",     "TotalColBox", "TotalItens",
    "TotalLinBox",   "TotalRegistros", "URL",
});

}  // namespace

std::string Spelled(std::string_view word) {
  if (word != Upper(word)) return std::string(word);
  if (const std::size_t point = word.find('.'); point != std::string_view::npos)
    return Spelled(word.substr(0, point)) + "." + Spelled(word.substr(point + 1));
  const auto compound = std::find_if(kCompounds.begin(), kCompounds.end(),
                                     [word](std::string_view known) { return Upper(known) == word; });
  if (compound != kCompounds.end()) return std::string(*compound);
  return std::string(word.substr(0, 1)) + Lower(word.substr(std::min<std::size_t>(word.size(), 1)));
}

}  // namespace tessera
