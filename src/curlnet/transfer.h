// One transfer over the library's multi interface, which never waits longer than a step.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <set>
#include <string>

#include "curlnet/reply.h"
#include "system/ftp_client.h"

namespace tessera::curlnet {

// What the client keeps from one transfer to the next.
struct Session {
  CURLM* multi = nullptr;
  CURLSH* shared = nullptr;  // what encrypted lines have agreed on
  // Servers that encrypt what is said, and fail where files are to be encrypted as well.
  std::set<std::string> plainData;
};

class Transfer final : public FtpTransfer {
 public:
  // The session outlives it.
  Transfer(Session& session, FtpOrder order);
  ~Transfer() override;
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  bool Step() override;
  FtpProgress Progress() const override;
  bool IsWhole() const override { return isWhole_; }
  const std::string& Reply() const override { return reply_; }
  const std::string& Problem() const override { return problem_; }

 private:
  struct CloseHandle {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
  };

  static std::size_t TakeBytes(char* bytes, std::size_t size, std::size_t count, void* transfer);
  static std::size_t GiveBytes(char* bytes, std::size_t size, std::size_t count, void* transfer);

  bool SetAddress();
  void SetOptions();
  bool BeginsAnew(CURLcode result);
  void TakeEnd(CURLcode result);

  Session& session_;
  FtpOrder order_;
  bool hasMoved_ = false;  // a byte of the file
  std::unique_ptr<CURL, CloseHandle> handle_;
  bool isOver_ = false;
  bool isWhole_ = false;
  Replies replies_;
  std::string reply_;
  std::string problem_;
};

}  // namespace tessera::curlnet
