// The line to another program, against plain sockets of the test on loopback: whole, in pieces, stalled,
// broken.
#include "system/winsock.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include "platform/failure.h"

namespace tessera::test {

namespace {

using Delivered = EventSource::Delivered;

class Line final : public WinsockEvents {
 public:
  void OnConnectionRequest(int request) override {
    winsock.Close();
    winsock.Accept(request);
    caller = winsock.RemoteHostIP();
  }
  void OnDataArrival() override { arrived += winsock.GetData(); }

  // The next event, as a host waits for it.
  Delivered Next(std::chrono::milliseconds most = std::chrono::seconds(5)) {
    const auto end = std::chrono::steady_clock::now() + most;
    while (std::chrono::steady_clock::now() < end) {
      if (const Delivered delivered = winsock.DeliverNext(); delivered != Delivered::Nothing)
        return delivered;
      pollfd waits[] = {{.fd = winsock.EventDescriptor(), .events = POLLIN, .revents = 0},
                        {.fd = winsock.SendDescriptor(), .events = POLLIN, .revents = 0}};
      poll(waits, 2, 50);
    }
    return Delivered::Nothing;
  }

  std::string caller;
  std::string arrived;
  Winsock winsock{*this};
};

// A socket of the test's; IPv6 where the address has a colon.
class Peer {
 public:
  Peer() = default;
  ~Peer() { Close(); }

  std::uint16_t Listen(const char* host = "127.0.0.1") {
    heard_ = Bound(host);
    listen(heard_, 1);
    sockaddr_in6 own{};
    socklen_t length = sizeof own;
    getsockname(heard_, reinterpret_cast<sockaddr*>(&own), &length);
    return ntohs(own.sin6_port);  // at one place in both kinds of addresses
  }
  void Accept() { line_ = accept(heard_, nullptr, nullptr); }
  bool Call(const char* host, std::uint16_t port) {
    sockaddr_storage address{};
    line_ = socket(Fill(host, port, address), SOCK_STREAM, 0);
    return connect(line_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }
  void Send(std::string_view bytes) const {
    ASSERT_EQ(send(line_, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
  }
  std::string Read(std::size_t most) const {
    std::string bytes(most, '\0');
    const ssize_t count = recv(line_, bytes.data(), most, 0);
    bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return bytes;
  }
  // With bytes unread the system takes the line away at once.
  void Reset() {
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(line_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    Close();
  }
  void Close() {
    for (int* each : {&line_, &heard_}) {
      if (*each >= 0) close(*each);
      *each = -1;
    }
  }

 private:
  static int Fill(const char* host, std::uint16_t port, sockaddr_storage& address) {
    auto& v6 = reinterpret_cast<sockaddr_in6&>(address);
    auto& v4 = reinterpret_cast<sockaddr_in&>(address);
    const bool isNew = std::string_view(host).find(':') != std::string_view::npos;
    address.ss_family = isNew ? AF_INET6 : AF_INET;
    v4.sin_port = htons(port);
    if (isNew) {
      inet_pton(AF_INET6, host, &v6.sin6_addr);
    } else {
      inet_pton(AF_INET, host, &v4.sin_addr);
    }
    return address.ss_family;
  }
  static int Bound(const char* host) {
    sockaddr_storage address{};
    const int made = socket(Fill(host, 0, address), SOCK_STREAM, 0);
    bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    return made;
  }

  int heard_ = -1;
  int line_ = -1;
};

long FailureOf(const std::function<void()>& act) {
  const auto failure = Guard(act);
  return failure ? failure->number() : 0;
}

bool IsReady(int descriptor) {
  pollfd wait{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&wait, 1, 0) > 0;
}

// How many of this process's lines send at once and notice a side that has vanished.
int PreparedLines() {
  int prepared = 0;
  for (int descriptor = 0; descriptor < 256; ++descriptor) {
    const auto isSet = [&](int level, int option) {
      int value = 0;
      socklen_t length = sizeof value;
      return getsockopt(descriptor, level, option, &value, &length) == 0 && value != 0;
    };
    prepared += isSet(SOL_SOCKET, SO_KEEPALIVE) && isSet(IPPROTO_TCP, TCP_NODELAY) ? 1 : 0;
  }
  return prepared;
}

// A port that nobody has.
std::uint16_t FreePort() {
  return Peer().Listen();
}

}  // namespace

TEST(Winsock, CallsOverBothKindsOfAddresses) {
  for (const char* host : {"127.0.0.1", "::1"}) {
    Peer heard;
    Line calling;
    calling.winsock.Connect(host, heard.Listen(host));
    EXPECT_EQ(calling.Next(), Delivered::Event) << host;
    EXPECT_FALSE(IsReady(calling.winsock.EventDescriptor())) << "nothing has arrived";
    EXPECT_EQ(PreparedLines(), 1);
    heard.Accept();
    calling.winsock.SendData("um");
    EXPECT_EQ(heard.Read(9), "um");
    calling.winsock.Close();
    EXPECT_EQ(heard.Read(1), "") << "the end of the line";
  }
}

TEST(Winsock, IsCalledOverBothKindsOfAddresses) {
  for (const char* host : {"127.0.0.1", "::1"}) {
    Line called;
    Peer caller;
    const std::uint16_t port = FreePort();
    called.winsock.Listen(port);
    ASSERT_TRUE(caller.Call(host, port)) << host;
    EXPECT_EQ(called.Next(), Delivered::Event);
    EXPECT_EQ(called.caller, host);
    EXPECT_EQ(PreparedLines(), 1);
    caller.Send(std::string("a\0b", 3));
    EXPECT_EQ(called.Next(), Delivered::Arrival);
    EXPECT_EQ(called.arrived, std::string("a\0b", 3));
  }
}

TEST(Winsock, ListeningEndsWithTheFirstCallAndThePortIsFreeAgain) {
  Line line;
  const std::uint16_t port = FreePort();
  line.winsock.Listen(port);
  Line other;
  EXPECT_EQ(FailureOf([&] { other.winsock.Listen(port); }), 68) << "in use";
  EXPECT_FALSE(other.winsock.IsOpen());
  Peer first;
  ASSERT_TRUE(first.Call("127.0.0.1", port));
  EXPECT_EQ(line.Next(), Delivered::Event);
  EXPECT_FALSE(Peer().Call("127.0.0.1", port)) << "nobody listens any more";
  line.winsock.Listen(port);
  EXPECT_EQ(first.Read(1), "") << "a new listening ends the line";
}

TEST(Winsock, AFailedListeningLeavesNoListening) {
  Line line;
  line.winsock.Listen(FreePort());
  Peer holder;
  const std::uint16_t taken = holder.Listen("::");
  EXPECT_EQ(FailureOf([&] { line.winsock.Listen(taken); }), 68);
  EXPECT_FALSE(line.winsock.IsOpen());
}

TEST(Winsock, ACallThatNobodyTakesEndsInSilence) {
  Line line;
  line.winsock.Connect("127.0.0.1", FreePort());
  EXPECT_TRUE(line.winsock.IsOpen());
  EXPECT_EQ(FailureOf([&] { line.winsock.SendData("x"); }), 68) << "there is no line yet";
  EXPECT_EQ(line.Next(), Delivered::Event);
  EXPECT_FALSE(line.winsock.IsOpen());
  line.winsock.Connect("", 80);
  EXPECT_EQ(line.Next(), Delivered::Event);
  EXPECT_EQ(FailureOf([&] { line.winsock.SendData("x"); }), 68);
}

TEST(Winsock, AnArrivalLeavesTheRestOfAFloodWithTheSystem) {
  Line line;
  Peer flood;
  const std::uint16_t port = FreePort();
  line.winsock.Listen(port);
  ASSERT_TRUE(flood.Call("127.0.0.1", port));
  line.Next();
  flood.Send(std::string(Winsock::kMostArriving, 'a') + "b");
  for (std::size_t before = 0; before < Winsock::kMostArriving + 1; before = line.arrived.size()) {
    ASSERT_EQ(line.Next(), Delivered::Arrival);
    EXPECT_LE(line.arrived.size() - before, Winsock::kMostArriving);
  }
  EXPECT_EQ(line.arrived.back(), 'b');
}

TEST(Winsock, WhatAStalledReaderDoesNotTakeWaitsAndArrivesInOrder) {
  constexpr std::size_t kMuch = 20 << 20;
  std::string sent;
  for (std::size_t i = 0; sent.size() < kMuch; ++i) sent += std::to_string(i) + ' ';
  std::string read;
  Peer slow;
  std::thread reader;
  {
    Line line;
    const std::uint16_t port = slow.Listen();
    line.winsock.Connect("127.0.0.1", port);
    ASSERT_EQ(line.Next(), Delivered::Event);
    slow.Accept();
    line.winsock.SendData(std::string_view(sent).substr(0, 1000));
    line.winsock.SendData(std::string_view(sent).substr(1000));
    read += slow.Read(10);
    // A new call keeps the old line until its bytes have arrived.
    line.winsock.Close();
    EXPECT_EQ(FailureOf([&] { line.winsock.SendData("x"); }), 68);
    while (read.size() < sent.size() / 2) {
      read += slow.Read(1 << 16);
      line.winsock.SendWaiting();
    }
    // The end of the program waits for the rest.
    reader = std::thread([&] {
      for (std::string bytes = slow.Read(1 << 12); !bytes.empty(); bytes = slow.Read(1 << 12)) read += bytes;
    });
  }
  reader.join();
  EXPECT_TRUE(read == sent) << read.size() << " of " << sent.size();
}

TEST(Winsock, AHostWaitsForALineOnlyWhileItHasSomethingToSend) {
  const std::string sent(8 << 20, 'x');
  Line line;
  Peer slow;
  const auto waits = [&] { return IsReady(line.winsock.SendDescriptor()); };
  line.winsock.Connect("127.0.0.1", slow.Listen());
  ASSERT_EQ(line.Next(), Delivered::Event);
  slow.Accept();
  line.winsock.SendData(sent);
  EXPECT_FALSE(waits()) << "the other side takes nothing";
  for (std::size_t read = 0; read < sent.size();) {
    const std::size_t bytes = slow.Read(1 << 16).size();
    ASSERT_GT(bytes, 0U) << read;
    read += bytes;
    if (waits()) line.winsock.DeliverNext();
  }
  EXPECT_FALSE(waits()) << "all is sent";
}

TEST(Winsock, ASideThatIsGoneEndsNothing) {
  for (const bool reset : {false, true}) {
    Line line;
    Peer peer;
    line.winsock.Connect("127.0.0.1", peer.Listen());
    ASSERT_EQ(line.Next(), Delivered::Event);
    peer.Accept();
    peer.Send("fim");
    if (reset) {
      EXPECT_EQ(line.Next(), Delivered::Arrival);
      peer.Reset();
    } else {
      peer.Close();
    }
    // The program may send before it can know.
    for (int i = 0; i < 5; ++i) line.winsock.SendData(std::string(100'000, 'x'));
    if (!reset) {
      EXPECT_EQ(line.Next(), Delivered::Arrival) << "what came before the end is not lost";
    }
    EXPECT_EQ(line.arrived, "fim");
    EXPECT_EQ(line.Next(), Delivered::Event);
    EXPECT_FALSE(line.winsock.IsOpen());
    EXPECT_EQ(FailureOf([&] { line.winsock.SendData("x"); }), 68) << "there is no line any more";
  }
}

}  // namespace tessera::test
