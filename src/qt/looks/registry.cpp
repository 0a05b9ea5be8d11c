#include <map>
#include <typeindex>
#include <typeinfo>

#include "qt/looks/barra_look.h"
#include "qt/looks/botao_look.h"
#include "qt/looks/box_look.h"
#include "qt/looks/calendario_look.h"
#include "qt/looks/check_look.h"
#include "qt/looks/combo_look.h"
#include "qt/looks/gif_look.h"
#include "qt/looks/guia_look.h"
#include "qt/looks/imagem_look.h"
#include "qt/looks/link_look.h"
#include "qt/looks/look.h"
#include "qt/looks/mascara_look.h"
#include "qt/looks/moeda_look.h"
#include "qt/looks/moldura_look.h"
#include "qt/looks/pagina_look.h"
#include "qt/looks/rotulo_look.h"
#include "qt/looks/seta_look.h"
#include "qt/looks/texto_look.h"

namespace tessera {

namespace {

using Maker = std::unique_ptr<LookBody> (*)(Control& control, LogicEntry& entry);

template <typename ControlKind, typename Look>
std::pair<const std::type_index, Maker> Row() {
  return {typeid(ControlKind), [](Control& control, LogicEntry& entry) -> std::unique_ptr<LookBody> {
            return std::make_unique<Look>(static_cast<ControlKind&>(control), entry);
          }};
}

const std::map<std::type_index, Maker>& Makers() {
  static const std::map<std::type_index, Maker> makers = {
      Row<reports::PaginaControl, PaginaLook>(),
      Row<reports::SetaControl, SetaLook>(),
      Row<BarraControl, BarraLook>(),
      Row<BotaoControl, BotaoLook>(),
      Row<BoxControl, BoxLook>(),
      Row<CalendarioControl, CalendarioLook>(),
      Row<CheckControl, CheckLook>(),
      Row<ComboControl, ComboLook>(),
      Row<GifControl, GifLook>(),
      Row<GuiaControl, GuiaLook>(),
      Row<ImagemControl, ImagemLook>(),
      Row<LinkControl, LinkLook>(),
      Row<MascaraControl, MascaraLook>(),
      Row<MoedaControl, MoedaLook>(),
      Row<MolduraControl, MolduraLook>(),
      Row<OpcaoControl, OpcaoLook>(),
      Row<RotuloControl, RotuloLook>(),
      Row<TextoControl, TextoLook>(),
  };
  return makers;
}

}  // namespace

std::unique_ptr<ControlView> NewLook(Control& control, QWidget& window, LogicEntry& entry) {
  const auto maker = Makers().find(typeid(control));
  if (maker == Makers().end()) return nullptr;
  return std::make_unique<LookView>(maker->second(control, entry), control, window, entry);
}

}  // namespace tessera
