#include "objects/object_commands.h"

#include "objects/botao.h"
#include "objects/check.h"
#include "objects/moldura.h"
#include "objects/rotulo.h"

namespace tessera {

void AddObjectCommands(CommandTable& table, ObjectFrame& frame) {
  frame.Add<Botao>(table, "BOTAO").AddStyleCommand(table);
  frame.Add<Rotulo>(table, "ROTULO");
  frame.Add<Check>(table, "CHECK");
  frame.Add<Opcao>(table, "OPCAO");
  frame.Add<Moldura>(table, "MOLDURA");
}

}  // namespace tessera
