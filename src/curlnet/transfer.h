// One transfer over the library's multi interface, which never waits longer than a step.
#pragma once

#include <curl/curl.h>

#include <array>
#include <memory>
#include <string>

#include "curlnet/reply.h"
#include "system/ftp_client.h"

namespace tessera::curlnet {

class Transfer final : public FtpTransfer {
 public:
  // The library's handle outlives it.
  Transfer(CURLM* multi, FtpOrder order);
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

  bool SetAddress();
  void SetOptions();
  void TakeEnd(CURLcode result);

  CURLM* multi_;
  FtpOrder order_;
  std::array<char, CURL_ERROR_SIZE> detail_{};
  std::unique_ptr<CURL, CloseHandle> handle_;
  bool isOver_ = false;
  bool isWhole_ = false;
  Replies replies_;
  std::string reply_;
  std::string problem_;
};

}  // namespace tessera::curlnet
