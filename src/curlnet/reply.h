// The replies of a server (RFC 959, section 4.2): three digits and a text, or several lines between "ddd-"
// and "ddd ".
#pragma once

#include <string>
#include <string_view>

namespace tessera::curlnet {

class Replies {
 public:
  // A line as it came, with its end.
  void Take(std::string_view line);

  // The last line of the last whole reply; empty before the first.
  const std::string& Last() const { return last_; }
  // Its number; 0 before the first.
  int Number() const;
  // Whether the server has agreed to encrypt (RFC 4217: reply 234).
  bool IsEncrypted() const { return isEncrypted_; }

 private:
  std::string last_;
  bool isEncrypted_ = false;
  std::string open_;  // the number of a reply whose last line is still to come
};

}  // namespace tessera::curlnet
