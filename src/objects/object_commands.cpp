#include "objects/object_commands.h"

#include "objects/barra_rolagem.h"
#include "objects/botao.h"
#include "objects/calendario.h"
#include "objects/check.h"
#include "objects/combo.h"
#include "objects/link.h"
#include "objects/moeda.h"
#include "objects/moldura.h"
#include "objects/rotulo.h"

namespace tessera {

void AddObjectCommands(CommandTable& table, ObjectFrame& frame, Display& display) {
  frame.Add<Botao>(table, "BOTAO").AddStyleCommand(table);
  frame.Add<Rotulo>(table, "ROTULO");
  frame.Add<Check>(table, "CHECK");
  frame.Add<Opcao>(table, "OPCAO");
  frame.Add<Moeda>(table, "MOEDA");
  frame.Add<Combo>(table, "COMBO");
  frame.Add<CalendarioFamily>(table, "CALENDARIO");
  frame.Add<BarraRolagem>(table, "BARRAROLAGEM");
  frame.Add<Moldura>(table, "MOLDURA");
  frame.Add<Link>(table, "LINK", display);
}

}  // namespace tessera
