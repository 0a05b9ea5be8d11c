#include "curlnet/reply.h"

#include <algorithm>

namespace tessera::curlnet {

namespace {

constexpr std::size_t kDigits = 3;

bool BeginsWithNumber(std::string_view line) {
  return line.size() >= kDigits &&
         std::all_of(line.begin(), line.begin() + kDigits, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

void Replies::Take(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  if (!BeginsWithNumber(line)) return;
  const std::string_view number = line.substr(0, kDigits);
  if (!open_.empty() && number != open_) return;
  if (line.size() > kDigits && line[kDigits] == '-') {
    open_ = number;
    return;
  }
  open_.clear();
  last_ = line;
  isEncrypted_ = isEncrypted_ || number == "234";
}

int Replies::Number() const {
  return last_.empty() ? 0 : (last_[0] - '0') * 100 + (last_[1] - '0') * 10 + (last_[2] - '0');
}

}  // namespace tessera::curlnet
