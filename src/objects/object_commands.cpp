#include "objects/object_commands.h"

#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/box.h"
#include "objects/calendario.h"
#include "objects/check.h"
#include "objects/combo.h"
#include "objects/link.h"
#include "objects/mascara.h"
#include "objects/moeda.h"
#include "objects/moldura.h"
#include "objects/rotulo.h"
#include "objects/texto.h"

namespace tessera {

ObjectCommands::ObjectCommands(CommandTable& table, Run& run, WindowModel& windows, Desktop& desktop)
    : frame_(run, windows), menus_(frame_) {
  frame_.Add<Botao>(table, "BOTAO").AddStyleCommand(table);
  frame_.Add<BoxFamily>(table, "BOX");
  frame_.Add<Rotulo>(table, "ROTULO");
  frame_.Add<Check>(table, "CHECK");
  frame_.Add<Opcao>(table, "OPCAO");
  frame_.Add<Texto>(table, "TEXTO");
  frame_.Add<Mascara>(table, "MASCARA");
  frame_.Add<Moeda>(table, "MOEDA");
  frame_.Add<Combo>(table, "COMBO");
  frame_.Add<CalendarioFamily>(table, "CALENDARIO");
  frame_.Add<BarraRolagem>(table, "BARRAROLAGEM");
  frame_.Add<Moldura>(table, "MOLDURA");
  frame_.Add<Link>(table, "LINK", desktop);
  menus_.AddCommand(table);
}

}  // namespace tessera
