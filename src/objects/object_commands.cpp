#include "objects/object_commands.h"

#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/box.h"
#include "objects/calendario.h"
#include "objects/check.h"
#include "objects/combo.h"
#include "objects/figura.h"
#include "objects/gif_animado.h"
#include "objects/imagem.h"
#include "objects/link.h"
#include "objects/mascara.h"
#include "objects/moeda.h"
#include "objects/moldura.h"
#include "objects/rotulo.h"
#include "objects/texto.h"

namespace tessera {

ObjectCommands::ObjectCommands(CommandTable& table, Run& run, WindowModel& windows, Desktop& desktop)
    : frame_(run, windows), menus_(frame_) {
  frame_.Add<Botao>(table).BindStyleCommand(table);
  frame_.Add<BoxFamily>(table);
  frame_.Add<Rotulo>(table);
  frame_.Add<Check>(table);
  frame_.Add<Opcao>(table);
  frame_.Add<Texto>(table);
  frame_.Add<Mascara>(table);
  frame_.Add<Moeda>(table);
  frame_.Add<Combo>(table);
  frame_.Add<CalendarioFamily>(table);
  frame_.Add<BarraRolagem>(table);
  frame_.Add<Moldura>(table);
  frame_.Add<Link>(table, desktop);
  frame_.SetPictures(frame_.Add<Imagem>(table));
  frame_.Add<Figura>(table).BindDrawCommand(table);
  frame_.Add<GifAnimado>(table);
  menus_.BindCommand(table);
}

}  // namespace tessera
