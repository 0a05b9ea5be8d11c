#include "system/name_lookup.h"

#include <netdb.h>
#include <sys/eventfd.h>

#include <atomic>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/descriptor.h"

namespace tessera {

struct NameLookup::Request {
  Request(std::string askedHost, std::string askedPort)
      : host(std::move(askedHost)), port(std::move(askedPort)) {}

  const std::string host;
  const std::string port;
  const tessera::Descriptor done{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
  std::vector<SocketAddress> found;
  std::atomic<bool> isDone = false;

  void Ask() {
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICSERV;
    addrinfo* list = nullptr;
    if (getaddrinfo(host.c_str(), port.c_str(), &wanted, &list) == 0) {
      for (const addrinfo* entry = list; entry != nullptr; entry = entry->ai_next) {
        SocketAddress& address = found.emplace_back();
        std::memcpy(&address.bytes, entry->ai_addr, entry->ai_addrlen);
        address.length = entry->ai_addrlen;
      }
      freeaddrinfo(list);
    }
    isDone = true;
    eventfd_write(done.number(), 1);
  }
};

NameLookup::NameLookup(const std::string& host, std::uint16_t port)
    : request_(std::make_shared<Request>(host, std::to_string(port))) {
  try {
    std::thread([request = request_] { request->Ask(); }).detach();
  } catch (const std::system_error&) {
    request_->Ask();  // no thread is to be had
  }
}

int NameLookup::Descriptor() const {
  return request_->done.number();
}

bool NameLookup::IsDone() const {
  return request_->isDone;
}

std::vector<SocketAddress> NameLookup::Addresses() const {
  return request_->found;
}

}  // namespace tessera
