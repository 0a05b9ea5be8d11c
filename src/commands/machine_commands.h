// The commands that reach the machine: the registry, the start list, outside programs and hardware ports.
#pragma once

#include <string>
#include <vector>

#include "commands/command_table.h"
#include "platform/hardware_port.h"
#include "platform/registry_file.h"
#include "platform/start_list.h"
#include "values/run.h"

namespace tessera {

class MachineCommands {
 public:
  // Where they keep things. By default the places of the user who runs the program.
  struct Places {
    RegistryFile registry;
    StartList startList;
    HardwarePorts ports = HardwarePorts();
    bool isFinished = true;  // the program has an executable of its own
  };
  static Places UserPlaces(bool isFinished);

  MachineCommands(Run& run, Places places) : run_(run), places_(std::move(places)) {}

  void Register(CommandTable& table);

 private:
  struct Word;

  Value LeRegWin(std::string_view text);
  Value SalvaRegWin(std::string_view text);
  Value AdicioneSistema(std::string_view text);
  Value RemoveSistema(std::string_view text);
  Value Chame(std::string_view text);
  Value LePorta(std::string_view text);
  Value EnviaPorta(std::string_view text);

  int Start(const std::string& line, std::string_view form);
  std::string ProgramPath(const std::string& word) const;
  void TellForbiddenPort(std::string_view command, std::uint16_t port);

  Run& run_;
  Places places_;
  std::vector<int> processes_;  // started ones that may still run
};

}  // namespace tessera
