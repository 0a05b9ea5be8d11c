// The command `API`: chooses a library and a function of it, calls it, and gives back what it left in its
// arguments. The call itself is told in func_call.h.
#pragma once

#include <string>
#include <vector>

#include "commands/arguments.h"
#include "commands/command_table.h"
#include "system/func_call.h"

namespace tessera {

struct WindowModel;

class ApiCommand {
 public:
  // All live as long as the table.
  ApiCommand(CommandTable& table, Run& run, const WindowModel& windows);
  ApiCommand(const ApiCommand&) = delete;
  ApiCommand& operator=(const ApiCommand&) = delete;

 private:
  Value API(const WordCall& call);
  void Biblioteca(const ArgumentView& arguments);
  void NomeFuncao(const ArgumentView& arguments);
  void Execute(const ArgumentView& arguments);
  void Argumento(const ArgumentView& arguments);
  std::string ArgumentText(std::string_view argument);

  Run& run_;
  const WindowModel& windows_;
  cFuncCall call_;
  std::string ApiLibrary_;
  std::string ApiFunction_;
  std::vector<std::string> ApiArguments_;
};

}  // namespace tessera
