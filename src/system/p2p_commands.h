// The commands of the text channel to another program: `ConectaP2P`, `EscutaP2P` and `EnviaP2P`. The line
// itself is told in winsock.h. It carries bytes and no lines: programs that want some end theirs.
#pragma once

#include <memory>

#include "commands/command_table.h"
#include "system/winsock.h"

namespace tessera {

class P2PCommands final : private WinsockEvents {
 public:
  // The run and the group live as long as the table.
  P2PCommands(CommandTable& table, Run& run);
  ~P2PCommands() override;
  P2PCommands(const P2PCommands&) = delete;
  P2PCommands& operator=(const P2PCommands&) = delete;

 private:
  Value ConectaP2P(const WordCall& call);
  Value EscutaP2P(const WordCall& call);
  Value EnviaP2P(const WordCall& call);
  void OnConnectionRequest(int request) override;
  void OnDataArrival() override;

  Winsock& Winsock1();
  std::uint16_t PortOf(const Value& number);

  Run& run_;
  std::unique_ptr<Winsock> Winsock1_;  // made by the first command
};

}  // namespace tessera
