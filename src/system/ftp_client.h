// What the words of file transfer need of whoever speaks to the server: one transfer at a time, done step by
// step, so that the program's events go on meanwhile. Names and texts are UTF-8.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tessera {

struct FtpServer {
  std::string host;  // a name or a number, with ":port" where it is not 21
  std::string user;
  std::string password;
};

struct FtpOrder {
  FtpServer server;
  std::string remote;  // as the server knows it, sent as it stands
  // A download: takes the bytes as they come. False gives the transfer up.
  std::function<bool(std::string_view bytes)> store;
  // An upload, where it is set: fills up to so many bytes from the front, and gives their number; 0 at the
  // end.
  std::function<std::size_t(char* bytes, std::size_t most)> load;
  std::uint64_t size = 0;  // of the upload
  // For the connection, and again for each stretch of time without a byte.
  std::chrono::seconds timeOut{60};
};

struct FtpProgress {
  std::uint64_t done = 0;
  std::uint64_t whole = 0;  // 0 while nobody knows
};

class FtpTransfer {
 public:
  virtual ~FtpTransfer() = default;

  // Goes on for a moment; false once the transfer is over.
  virtual bool Step() = 0;
  virtual FtpProgress Progress() const = 0;

  // Once it is over: whether all bytes went over, the server's last reply with its number, and, where that is
  // no answer to the order, why there is none.
  virtual bool IsWhole() const = 0;
  virtual const std::string& Reply() const = 0;
  virtual const std::string& Problem() const = 0;
};

class FtpClient {
 public:
  virtual ~FtpClient() = default;
  // The client outlives the transfer.
  virtual std::unique_ptr<FtpTransfer> Start(FtpOrder order) = 0;
};

// The entry point of the part: a new client.
inline constexpr const char* kFtpClientEntry = "TesseraFtpClient";
using FtpClientEntry = FtpClient* (*)();

}  // namespace tessera
