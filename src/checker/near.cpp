#include "checker/near.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "checker/form.h"

namespace tessera::check {

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  constexpr std::size_t kLongest = 60;
  const std::size_t gap = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (gap >= limit || a.size() > kLongest || b.size() > kLongest) return limit;
  std::array<std::size_t, kLongest + 1> before{};
  std::array<std::size_t, kLongest + 1> last{};
  std::array<std::size_t, kLongest + 1> row{};
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    std::size_t least = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t change = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({change, last[j] + 1, row[j - 1] + 1});
      const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwap) row[j] = std::min(row[j], before[j - 2] + 1);
      least = std::min(least, row[j]);
    }
    if (least >= limit) return limit;
    before = last;
    last = row;
  }
  return std::min(last[b.size()], limit);
}

Nearest::Nearest(std::string_view written)
    : folded_(Folded(written)), least_(std::min<std::size_t>(4, folded_.size() / 3 + 1)) {
  // Of two letters a third is none, but a wrong one among three is worth a guess.
  if (folded_.size() >= 3) least_ = std::max<std::size_t>(least_, 2);
}

void Nearest::Show(std::string_view name) {
  const std::size_t distance = EditDistance(folded_, Folded(name), least_);
  if (distance >= least_) return;
  least_ = distance;
  best_ = name;
}

}  // namespace tessera::check
