#include "system/p2p_commands.h"

#include <limits>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "system/device_failure.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {

P2PCommands::P2PCommands(CommandTable& table, Run& run) : run_(run) {
  constexpr MemberRow<P2PCommands> kRows[] = {
      {"ConectaP2P", &P2PCommands::ConectaP2P},
      {"EscutaP2P", &P2PCommands::EscutaP2P},
      {"EnviaP2P", &P2PCommands::EnviaP2P},
  };
  Bind(table, kRows, *this);
}

P2PCommands::~P2PCommands() {
  if (Winsock1_) run_.host.events.Watch(nullptr);
}

Winsock& P2PCommands::Winsock1() {
  if (!Winsock1_) {
    Winsock1_ = std::make_unique<Winsock>(static_cast<WinsockEvents&>(*this));
    run_.host.events.Watch(Winsock1_.get());
  }
  return *Winsock1_;
}

// The port of a call or of a listening, which ends what was before it in every case.
std::uint16_t P2PCommands::PortOf(const Value& number) {
  Winsock1().Close();
  const std::int32_t port = number.ToInteger();
  if (port >= 0 && port <= std::numeric_limits<std::uint16_t>::max()) return static_cast<std::uint16_t>(port);
  FailDevice(std::string("não existe a porta "_w).append(std::to_string(port)));
}

Value P2PCommands::ConectaP2P(const WordCall& call) {
  const Arguments arguments(call);
  const std::string host = arguments.Text("computador");
  const std::uint16_t port = PortOf(arguments.Number("porta"));
  Winsock1().Connect(ToUtf8(host), port);
  return {};
}

Value P2PCommands::EscutaP2P(const WordCall& call) {
  const Arguments arguments(call);
  Winsock1().Listen(PortOf(arguments.Number("porta")));
  return {};
}

Value P2PCommands::EnviaP2P(const WordCall& call) {
  const std::string text = Arguments(call).Text("texto");
  Winsock1().SendData(text);
  return {};
}

// An event whose variable the program has removed changes nothing.
void P2PCommands::OnConnectionRequest(int request) {
  Winsock1().Close();
  Winsock1().Accept(request);
  Guard([&] { run_.variables.VarWrite("ValorReferencia", Winsock1().RemoteHostIP(), true); });
}

void P2PCommands::OnDataArrival() {
  Guard([&] { run_.variables.VarWrite("Retorno", Winsock1().GetData(), true); });
}

}  // namespace tessera
