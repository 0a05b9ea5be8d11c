// The addresses of a host's name. The system's answer may take long, so it is waited for on a thread of its
// own, which knows nothing of the run.
#pragma once

#include <sys/socket.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tessera {

struct SocketAddress {
  sockaddr_storage bytes{};
  socklen_t length = 0;
};

class NameLookup {
 public:
  // Asks for all addresses, of both kinds, of a host by its name or its number (UTF-8).
  NameLookup(const std::string& host, std::uint16_t port);

  // Can be read once the answer is there.
  int Descriptor() const;
  bool IsDone() const;
  // The answer, in the order in which the addresses are to be tried; none for an unknown host.
  std::vector<SocketAddress> Addresses() const;

 private:
  struct Request;

  // Shared with the thread, which may outlast whoever asked.
  std::shared_ptr<Request> request_;
};

}  // namespace tessera
