#include "system/winsock.h"

#include <fcntl.h>
#include <linux/sockios.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>

#include "platform/system_reason.h"
#include "platform/termination.h"
#include "system/device_failure.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {

namespace {

constexpr int kSocketFlags = SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC;

void SetOption(int socket, int level, int option, int value) {
  setsockopt(socket, level, option, &value, sizeof value);
}

// What is sent leaves at once, and a side that has vanished is noticed.
void PrepareLine(int socket) {
  SetOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
  SetOption(socket, IPPROTO_TCP, TCP_NODELAY, 1);
}

void Watch(int watch, int descriptor, std::uint32_t what) {
  epoll_event event{.events = what, .data = {.fd = descriptor}};
  if (epoll_ctl(watch, EPOLL_CTL_MOD, descriptor, &event) != 0) {
    epoll_ctl(watch, EPOLL_CTL_ADD, descriptor, &event);
  }
}

void Unwatch(int watch, int descriptor) {
  epoll_ctl(watch, EPOLL_CTL_DEL, descriptor, nullptr);
}

// A socket that hears calls on the port, over both kinds of addresses where the machine has both; errno where
// there is none.
Descriptor HearingSocket(std::uint16_t port) {
  Descriptor both(socket(AF_INET6, kSocketFlags, 0));
  if (both.IsOpen()) {
    SetOption(both.number(), SOL_SOCKET, SO_REUSEADDR, 1);
    SetOption(both.number(), IPPROTO_IPV6, IPV6_V6ONLY, 0);
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    if (bind(both.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return both;
    if (errno != EADDRNOTAVAIL && errno != EAFNOSUPPORT) return Descriptor(-1);
  }
  Descriptor old(socket(AF_INET, kSocketFlags, 0));
  if (!old.IsOpen()) return old;
  SetOption(old.number(), SOL_SOCKET, SO_REUSEADDR, 1);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  if (bind(old.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return old;
  return Descriptor(-1);
}

// The bytes that the other side's system has not got yet; none once the line has broken.
std::size_t OnTheWay(int socket) {
  tcp_info line{};
  socklen_t length = sizeof line;
  int bytes = 0;
  const bool isOver =
      getsockopt(socket, IPPROTO_TCP, TCP_INFO, &line, &length) != 0 || line.tcpi_state == TCP_CLOSE;
  if (isOver || ioctl(socket, SIOCOUTQ, &bytes) != 0) return 0;
  return static_cast<std::size_t>(bytes);
}

std::string PortProblem(std::uint16_t port, int error) {
  return "porta " + std::to_string(port) + ": " + FromUtf8Lossy(SystemReason(error));
}

}  // namespace

Winsock::Winsock(WinsockEvents& events)
    : events_(events),
      eventWatch_(epoll_create1(EPOLL_CLOEXEC)),
      sendWatch_(epoll_create1(EPOLL_CLOEXEC)),
      refusal_(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Winsock::~Winsock() {
  Close();
  AwaitSent();
}

void Winsock::Close() {
  if (lookup_) Unwatch(eventWatch_.number(), lookup_->Descriptor());
  lookup_.reset();
  untried_.clear();
  Unwatch(eventWatch_.number(), refusal_.number());
  if (line_.socket) {
    Unwatch(eventWatch_.number(), line_.socket->number());
    if (state_ == State::Connected && !HasArrived(line_)) Leave(std::move(line_));
  }
  line_.Clear();
  state_ = State::Closed;
  SendWaiting();
}

void Winsock::Connect(const std::string& host, std::uint16_t port) {
  Close();
  lookup_.emplace(host, port);
  Watch(eventWatch_.number(), lookup_->Descriptor(), EPOLLIN);
  state_ = State::LookingUp;
}

void Winsock::Listen(std::uint16_t port) {
  Close();
  Descriptor heard = HearingSocket(port);
  if (!heard.IsOpen() || listen(heard.number(), 1) != 0) FailDevice(PortProblem(port, errno));
  Take(std::move(heard), State::Listening, EPOLLIN);
}

void Winsock::Accept(int request) {
  PrepareLine(request);
  Take(Descriptor(request), State::Connected, EPOLLIN);
}

void Winsock::Take(Descriptor socket, State state, std::uint32_t watched) {
  line_.Clear();
  line_.socket.emplace(std::move(socket));
  state_ = state;
  Watch(eventWatch_.number(), line_.socket->number(), watched);
}

// OPEN: what is sent to a side that has just gone, before its going could be told, is lost without a word;
// behind that event there is no line, and sending is a failure.
void Winsock::SendData(std::string_view bytes) {
  if (state_ != State::Connected) FailDevice("não há conexão com outro programa"_w);
  if (line_.isBroken) return;
  if (bytes.size() > kMostWaiting - line_.waiting.size()) {
    FailDevice("o outro programa não lê o que já lhe foi enviado"_w);
  }
  line_.waiting += bytes;
  SendOn(line_);
}

std::string Winsock::RemoteHostIP() const {
  SocketAddress peer{.bytes = {}, .length = sizeof(sockaddr_storage)};
  auto* address = reinterpret_cast<sockaddr*>(&peer.bytes);
  std::array<char, NI_MAXHOST> text{};
  if (!line_.socket || getpeername(line_.socket->number(), address, &peer.length) != 0 ||
      getnameinfo(address, peer.length, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0) {
    return {};
  }
  constexpr std::string_view kOldInNew = "::ffff:";
  std::string_view number = text.data();
  if (number.starts_with(kOldInNew)) number.remove_prefix(kOldInNew.size());
  return std::string(number);
}

// Events

EventSource::Delivered Winsock::DeliverNext() {
  SendWaiting();
  switch (state_) {
    case State::LookingUp:
      return TakeLookup();
    case State::Calling:
      return TakeOutcome();
    case State::Listening:
      return TakeCall();
    case State::Connected:
      return TakeArrival();
    case State::Refused:
      Close();
      return Delivered::Event;
    case State::Closed:
      break;
  }
  return Delivered::Nothing;
}

EventSource::Delivered Winsock::TakeLookup() {
  if (!lookup_->IsDone()) return Delivered::Nothing;
  untried_ = lookup_->Addresses();
  std::reverse(untried_.begin(), untried_.end());
  Unwatch(eventWatch_.number(), lookup_->Descriptor());
  lookup_.reset();
  CallNext();
  return Delivered::Nothing;
}

// Calls the next address that can be called at all.
void Winsock::CallNext() {
  while (!untried_.empty()) {
    const SocketAddress address = untried_.back();
    untried_.pop_back();
    Descriptor called(socket(address.bytes.ss_family, kSocketFlags, 0));
    if (!called.IsOpen()) continue;
    PrepareLine(called.number());
    const auto* bytes = reinterpret_cast<const sockaddr*>(&address.bytes);
    if (connect(called.number(), bytes, address.length) != 0 && errno != EINPROGRESS) continue;
    return Take(std::move(called), State::Calling, EPOLLOUT);
  }
  line_.Clear();
  state_ = State::Refused;
  Watch(eventWatch_.number(), refusal_.number(), EPOLLIN);
}

EventSource::Delivered Winsock::TakeOutcome() {
  pollfd outcome{.fd = line_.socket->number(), .events = POLLOUT, .revents = 0};
  if (poll(&outcome, 1, 0) <= 0) return Delivered::Nothing;
  int error = 0;
  socklen_t length = sizeof error;
  getsockopt(line_.socket->number(), SOL_SOCKET, SO_ERROR, &error, &length);
  if (error != 0) {
    CallNext();
    return Delivered::Nothing;
  }
  state_ = State::Connected;
  Watch(eventWatch_.number(), line_.socket->number(), EPOLLIN);
  return Delivered::Event;
}

EventSource::Delivered Winsock::TakeCall() {
  const int request = accept4(line_.socket->number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  if (request < 0) return Delivered::Nothing;
  events_.OnConnectionRequest(request);
  return Delivered::Event;
}

EventSource::Delivered Winsock::TakeArrival() {
  std::string bytes(kMostArriving, '\0');
  const ssize_t count = recv(line_.socket->number(), bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return Delivered::Nothing;
  if (count <= 0) {
    line_.isBroken = count < 0;
    Close();
    return Delivered::Event;
  }
  bytes.resize(static_cast<std::size_t>(count));
  arrived_ = std::move(bytes);
  events_.OnDataArrival();
  return Delivered::Arrival;
}

// Sending

void Winsock::SendWaiting() {
  if (line_.socket && !line_.waiting.empty()) SendOn(line_);
  for (Outgoing& left : left_) {
    if (left.waiting.empty()) continue;
    SendOn(left);
    if (left.waiting.empty()) shutdown(left.socket->number(), SHUT_WR);
  }
  std::erase_if(left_, HasArrived);
}

// A socket that is closed while bytes come in would take back what it still has to send, so that it stays
// open until that has arrived.
void Winsock::Leave(Outgoing line) {
  if (line.waiting.empty()) shutdown(line.socket->number(), SHUT_WR);
  left_.push_back(std::move(line));
}

void Winsock::SendOn(Outgoing& line) {
  std::size_t sent = 0;
  const int socket = line.socket->number();
  while (sent < line.waiting.size()) {
    const ssize_t count = send(socket, line.waiting.data() + sent, line.waiting.size() - sent, MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno != EAGAIN) line.isBroken = true;
    if (count < 0) break;
    sent += static_cast<std::size_t>(count);
  }
  line.waiting.erase(0, sent);
  if (line.isBroken) line.waiting.clear();
  if (line.waiting.empty()) {
    Unwatch(sendWatch_.number(), socket);
  } else {
    Watch(sendWatch_.number(), socket, EPOLLOUT);
  }
}

bool Winsock::HasArrived(const Outgoing& line) {
  if (line.isBroken) return true;
  return line.waiting.empty() && OnTheWay(line.socket->number()) == 0;
}

// OPEN: a program's end waits for what it has sent, as long as the other side takes some of it within a
// minute.
void Winsock::AwaitSent() {
  using Steady = std::chrono::steady_clock;
  constexpr std::chrono::seconds kLongestStall{60};
  constexpr int kPause = 20;  // milliseconds
  const auto rest = [this] {
    std::size_t bytes = 0;
    for (const Outgoing& left : left_) bytes += left.waiting.size() + OnTheWay(left.socket->number());
    return bytes;
  };
  std::size_t before = rest();
  for (auto moved = Steady::now(); !left_.empty() && !termination::IsAsked();) {
    pollfd ready{.fd = sendWatch_.number(), .events = POLLIN, .revents = 0};
    poll(&ready, 1, kPause);
    SendWaiting();
    if (const std::size_t now = rest(); now != before) {
      before = now;
      moved = Steady::now();
    } else if (Steady::now() - moved > kLongestStall) {
      return;
    }
  }
}

}  // namespace tessera
