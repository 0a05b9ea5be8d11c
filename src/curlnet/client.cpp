// The part's entry point.
#include <curl/curl.h>

#include <memory>
#include <utility>

#include "curlnet/quiet_pipe.h"
#include "curlnet/transfer.h"

namespace tessera::curlnet {

namespace {

// It keeps the line to a server open from one transfer to the next.
class Client final : public FtpClient {
 public:
  Client() {
    curl_global_init(CURL_GLOBAL_DEFAULT);
    session_.multi = curl_multi_init();
    session_.shared = curl_share_init();
    curl_share_setopt(session_.shared, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
  }
  ~Client() override {
    const QuietPipe quiet;
    curl_multi_cleanup(session_.multi);
    curl_share_cleanup(session_.shared);
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  std::unique_ptr<FtpTransfer> Start(FtpOrder order) override {
    return std::make_unique<Transfer>(session_, std::move(order));
  }

 private:
  Session session_;
};

}  // namespace

}  // namespace tessera::curlnet

extern "C" __attribute__((visibility("default"))) tessera::FtpClient* TesseraFtpClient() {
  return new tessera::curlnet::Client();
}
