// `Winsock1`: one line to another program over TCP, made by calling it or by waiting for its call. Nothing
// here waits: what happens is told by a host, which watches the descriptors (`EventSource`), and what the
// system does not take at once is sent on as the other side reads.
#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"
#include "platform/host.h"
#include "system/name_lookup.h"

namespace tessera {

class WinsockEvents {
 public:
  virtual ~WinsockEvents() = default;
  // Somebody calls; `request` is for `Accept`.
  virtual void OnConnectionRequest(int request) = 0;
  // Bytes have come, for `GetData`.
  virtual void OnDataArrival() = 0;
};

class Winsock final : public EventSource {
 public:
  // An arrival has at most so many bytes; what is left stays with the system, and so with who sends.
  static constexpr std::size_t kMostArriving = std::size_t{1} << 16;
  // What may wait to be sent to a side that does not read.
  static constexpr std::size_t kMostWaiting = std::size_t{1} << 28;

  // The events outlive it.
  explicit Winsock(WinsockEvents& events);
  // What was sent arrives, unless the other side takes nothing for a minute or the system ends the process.
  ~Winsock() override;
  Winsock(const Winsock&) = delete;
  Winsock& operator=(const Winsock&) = delete;

  // Ends the line, the call or the waiting. What was sent on it still arrives.
  void Close();
  // Calls a host (UTF-8), all its addresses one after the other. A call that nobody takes ends in silence.
  void Connect(const std::string& host, std::uint16_t port);
  // Waits for calls over IPv6 and IPv4. Failure 68 where the port can't be had.
  void Listen(std::uint16_t port);
  // Takes a call.
  void Accept(int request);
  // Failure 68 without a line, and where too much waits already. A side that is gone takes it and says
  // nothing.
  void SendData(std::string_view bytes);
  // What has arrived; the next call has nothing.
  std::string GetData() { return std::exchange(arrived_, {}); }
  // The other side's address as a number; an IPv4 one as such.
  std::string RemoteHostIP() const;

  Delivered DeliverNext() override;
  int EventDescriptor() const override { return eventWatch_.number(); }
  bool IsOpen() const override { return state_ != State::Closed; }
  void SendWaiting() override;
  int SendDescriptor() const override { return sendWatch_.number(); }

 private:
  enum class State { Closed, LookingUp, Calling, Refused, Listening, Connected };

  // The bytes of one socket that wait to be sent.
  struct Outgoing {
    std::optional<Descriptor> socket;
    std::string waiting;
    bool isBroken = false;  // the other side takes nothing any more

    void Clear() {
      socket.reset();
      waiting.clear();
      isBroken = false;
    }
  };

  void Take(Descriptor socket, State state, std::uint32_t watched);
  void CallNext();
  Delivered TakeLookup();
  Delivered TakeCall();
  Delivered TakeOutcome();
  Delivered TakeArrival();
  void SendOn(Outgoing& line);
  void Leave(Outgoing line);
  // True once the other side's system has all of it.
  static bool HasArrived(const Outgoing& line);
  void AwaitSent();

  WinsockEvents& events_;
  Descriptor eventWatch_;
  Descriptor sendWatch_;
  Descriptor refusal_;  // read while the state is `Refused`
  State state_ = State::Closed;
  std::optional<NameLookup> lookup_;
  std::vector<SocketAddress> untried_;  // the next one last
  Outgoing line_;
  std::list<Outgoing> left_;  // closed, with bytes on their way
  std::string arrived_;
};

}  // namespace tessera
