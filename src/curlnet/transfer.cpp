#include "curlnet/transfer.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "curlnet/quiet_pipe.h"

namespace tessera::curlnet {

namespace {

constexpr int kStep = 10;             // milliseconds
constexpr long kBuffer = 256L << 10;  // bytes
constexpr int kFirstRefusal = 400;    // replies from here on refuse
constexpr std::string_view kScheme = "ftp://";

struct CloseAddress {
  void operator()(CURLU* address) const { curl_url_cleanup(address); }
};

struct HostAndPort {
  std::string host;
  std::string port;
};

// "nome", "nome:2121", "[::1]:2121", "::1": a number of many colons has a port only behind its brackets.
HostAndPort SplitHost(std::string_view text) {
  if (text.starts_with(kScheme)) text.remove_prefix(kScheme.size());
  while (text.ends_with('/')) text.remove_suffix(1);
  const std::size_t close = text.find(']');
  const bool isBracketed = text.starts_with('[') && close != std::string_view::npos;
  const std::size_t colon = isBracketed ? close + 1 : text.find(':');
  if (!isBracketed && colon != text.rfind(':')) return {"[" + std::string(text) + "]", {}};
  if (colon >= text.size() || text[colon] != ':') return {std::string(text), {}};
  return {std::string(text.substr(0, colon)), std::string(text.substr(colon + 1))};
}

std::size_t TakeLine(char* bytes, std::size_t size, std::size_t count, void* replies) {
  static_cast<Replies*>(replies)->Take({bytes, size * count});
  return size * count;
}

// Why no server answered, without a word of the library's that could hold a part of the order.
std::string ReasonOf(CURLcode result) {
  switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return "o nome do servidor não é conhecido";
    case CURLE_COULDNT_CONNECT:
      return "o servidor recusou a conexão";
    case CURLE_OPERATION_TIMEDOUT:
    case CURLE_FTP_ACCEPT_TIMEOUT:
      return "o servidor não respondeu a tempo";
    case CURLE_URL_MALFORMAT:
      return "o nome do servidor ou do arquivo não pode ser usado";
    case CURLE_SSL_CONNECT_ERROR:
      return "a conexão cifrada falhou";
    case CURLE_WRITE_ERROR:
    case CURLE_READ_ERROR:
    case CURLE_ABORTED_BY_CALLBACK:
      return "o arquivo deste computador não pôde ser lido ou gravado";
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_GOT_NOTHING:
      return "a conexão foi interrompida";
    default:
      return "a transferência falhou (erro " + std::to_string(result) + ")";
  }
}

}  // namespace

std::size_t Transfer::TakeBytes(char* bytes, std::size_t size, std::size_t count, void* transfer) {
  auto& self = *static_cast<Transfer*>(transfer);
  self.hasMoved_ = true;
  return self.order_.store({bytes, size * count}) ? size * count : 0;
}

std::size_t Transfer::GiveBytes(char* bytes, std::size_t size, std::size_t count, void* transfer) {
  auto& self = *static_cast<Transfer*>(transfer);
  self.hasMoved_ = true;
  return self.order_.load(bytes, size * count);
}

Transfer::Transfer(Session& session, FtpOrder order)
    : session_(session), order_(std::move(order)), handle_(curl_easy_init()) {
  // An address without a file would be a listing.
  if (!handle_ || order_.remote.empty() || order_.remote.ends_with('/') || !SetAddress()) {
    TakeEnd(CURLE_URL_MALFORMAT);
    return;
  }
  SetOptions();
  curl_multi_add_handle(session_.multi, handle_.get());
}

Transfer::~Transfer() {
  const QuietPipe quiet;
  if (handle_) curl_multi_remove_handle(session_.multi, handle_.get());
  handle_.reset();
}

// The name stands in the address with all its signs escaped, so that none means anything there; the library
// sends it to the server in one piece, as it was.
bool Transfer::SetAddress() {
  const std::unique_ptr<CURLU, CloseAddress> address(curl_url());
  const HostAndPort server = SplitHost(order_.server.host);
  std::string path = "/";
  for (const char c : order_.remote) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    path += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
  }
  const auto set = [&](CURLUPart part, const std::string& text) {
    return curl_url_set(address.get(), part, text.c_str(), 0) == CURLUE_OK;
  };
  const bool isSound = !server.host.empty() && set(CURLUPART_SCHEME, "ftp") &&
                       set(CURLUPART_HOST, server.host) && set(CURLUPART_PATH, path) &&
                       (server.port.empty() || set(CURLUPART_PORT, server.port));
  char* text = nullptr;
  if (!isSound || curl_url_get(address.get(), CURLUPART_URL, &text, 0) != CURLUE_OK) return false;
  curl_easy_setopt(handle_.get(), CURLOPT_URL, text);
  curl_free(text);
  return true;
}

void Transfer::SetOptions() {
  CURL* handle = handle_.get();
  const auto seconds = static_cast<long>(order_.timeOut.count());
  curl_easy_setopt(handle, CURLOPT_SHARE, session_.shared);
  curl_easy_setopt(handle, CURLOPT_USERNAME, order_.server.user.c_str());
  curl_easy_setopt(handle, CURLOPT_PASSWORD, order_.server.password.c_str());
  curl_easy_setopt(handle, CURLOPT_FTP_FILEMETHOD, long{CURLFTPMETHOD_NOCWD});
  curl_easy_setopt(handle, CURLOPT_PROXY, "");
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  // Encryption is asked for and not insisted on, so that nobody's certificate is held against a server.
  const bool isPlainData = session_.plainData.contains(order_.server.host);
  curl_easy_setopt(handle, CURLOPT_USE_SSL, long{isPlainData ? CURLUSESSL_CONTROL : CURLUSESSL_TRY});
  // Servers that want the session of the first line on the second one can't have it in the newer version.
  curl_easy_setopt(handle, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_MAX_TLSv1_2});
  curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 0L);
  curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 0L);
  curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, seconds);
  curl_easy_setopt(handle, CURLOPT_FTP_RESPONSE_TIMEOUT, seconds);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, seconds);
  curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, kBuffer);
  curl_easy_setopt(handle, CURLOPT_UPLOAD_BUFFERSIZE, kBuffer);
  curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, TakeLine);
  curl_easy_setopt(handle, CURLOPT_HEADERDATA, &replies_);
  if (order_.load) {
    curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(handle, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(order_.size));
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, GiveBytes);
    curl_easy_setopt(handle, CURLOPT_READDATA, this);
  } else {
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, TakeBytes);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
  }
}

bool Transfer::Step() {
  if (isOver_) return false;
  const QuietPipe quiet;
  int running = 0;
  curl_multi_perform(session_.multi, &running);
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(session_.multi, &left)) {
    if (message->msg != CURLMSG_DONE || message->easy_handle != handle_.get()) continue;
    const CURLcode result = message->data.result;
    if (!BeginsAnew(result)) TakeEnd(result);
  }
  if (!isOver_) curl_multi_poll(session_.multi, nullptr, 0, kStep, nullptr);
  return !isOver_;
}

// OPEN: some servers fail where files are to be encrypted as well: then the order is given once more, without
// that. What the program says to the server stays encrypted.
bool Transfer::BeginsAnew(CURLcode result) {
  const bool isTrouble = result == CURLE_FTP_WEIRD_PASV_REPLY || result == CURLE_SSL_CONNECT_ERROR ||
                         result == CURLE_RECV_ERROR || result == CURLE_SEND_ERROR;
  if (!isTrouble || !replies_.IsEncrypted() || hasMoved_ ||
      !session_.plainData.insert(order_.server.host).second) {
    return false;
  }
  curl_multi_remove_handle(session_.multi, handle_.get());
  replies_ = {};
  curl_easy_setopt(handle_.get(), CURLOPT_USE_SSL, long{CURLUSESSL_CONTROL});
  curl_multi_add_handle(session_.multi, handle_.get());
  return true;
}

// A refusal is the answer of the server; where the transfer failed otherwise the last reply was to something
// before.
void Transfer::TakeEnd(CURLcode result) {
  isOver_ = true;
  isWhole_ = result == CURLE_OK;
  const bool isAnswered = result != CURLE_OPERATION_TIMEDOUT && replies_.Number() >= kFirstRefusal;
  if (isWhole_ || isAnswered) {
    reply_ = replies_.Last();
  } else {
    problem_ = ReasonOf(result);
  }
}

FtpProgress Transfer::Progress() const {
  curl_off_t done = 0;
  curl_off_t whole = 0;
  if (handle_ && order_.load) {
    curl_easy_getinfo(handle_.get(), CURLINFO_SIZE_UPLOAD_T, &done);
    whole = static_cast<curl_off_t>(order_.size);
  } else if (handle_) {
    curl_easy_getinfo(handle_.get(), CURLINFO_SIZE_DOWNLOAD_T, &done);
    curl_easy_getinfo(handle_.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &whole);
  }
  return {static_cast<std::uint64_t>(done), static_cast<std::uint64_t>(std::max<curl_off_t>(whole, 0))};
}

}  // namespace tessera::curlnet
