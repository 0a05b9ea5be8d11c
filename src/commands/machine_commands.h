// The commands that reach the machine: the registry, the start list, outside programs and hardware ports.
#pragma once

#include <functional>
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
  // What they reach.
  struct Places {
    RegistryFile registry;
    StartList startList;
    HardwarePorts ports = HardwarePorts();
    bool isFinished = true;  // the program has an executable of its own
    std::function<ProcessStart()> ownStart = OwnStart;
  };

  // The run and the group live as long as the table.
  MachineCommands(CommandTable& table, Run& run, Places places);
  MachineCommands(const MachineCommands&) = delete;
  MachineCommands& operator=(const MachineCommands&) = delete;

 private:
  Value LeRegWin(const WordCall& call);
  Value SalvaRegWin(const WordCall& call);
  Value AdicioneSistema(const WordCall& call);
  Value RemoveSistema(const WordCall& call);
  Value Chame(const WordCall& call);
  Value LePorta(const WordCall& call);
  Value EnviaPorta(const WordCall& call);

  int Start(const std::string& line, std::string_view form);
  std::string ProgramPath(const std::string& word) const;
  void TellForbiddenPort(std::string_view command, std::uint16_t port);

  Run& run_;
  Places places_;
  std::vector<int> processes_;  // started ones that may still run
};

}  // namespace tessera
