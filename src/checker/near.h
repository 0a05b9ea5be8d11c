// Names that are nearly the one that somebody wrote.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessera::check {

// How many characters have to be put in, taken out, changed, or swapped with their neighbour. Results of
// `limit` and above come back as `limit`.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit);

// Keeps the nearest of the names that it is shown. Case and accents count little.
class Nearest {
 public:
  explicit Nearest(std::string_view written);

  void Show(std::string_view name);
  // The nearest one within a third of the written name's length; empty where none is.
  const std::string& found() const { return best_; }

 private:
  std::string folded_;
  std::size_t least_;
  std::string best_;
};

}  // namespace tessera::check
