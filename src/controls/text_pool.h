// Texts kept back to back in large blocks, each with its length before it: a stored text costs 4 bytes beside
// its characters, and no allocation of its own. A text never changes and never moves.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tessera {

class TextPool {
 public:
  // A stored text; null is the empty one.
  using Ref = const char*;

  Ref Store(std::string_view text);
  static std::string_view Text(Ref ref);

  // The text is used no more. Its room is not reused; Unused tells when a copy into a new pool pays.
  void Drop(Ref ref);
  std::size_t Used() const { return used_; }
  std::size_t Unused() const { return unused_; }

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t room_ = 0;
  std::size_t used_ = 0;
  std::size_t unused_ = 0;
};

}  // namespace tessera
