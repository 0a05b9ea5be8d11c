#include "windows/flood_fill.h"

#include <cstddef>

namespace tessera {

namespace {

class Flood {
 public:
  Flood(Size size, const std::function<bool(int x, int y)>& isSame)
      : size_(size),
        isSame_(isSame),
        taken_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)) {}

  // Rows are taken whole; where the row above or below goes on, its pieces wait their turn.
  Spans From(int x, int y) {
    waiting_.push_back({y, x, x});
    while (!waiting_.empty()) {
      const Span seed = waiting_.back();
      waiting_.pop_back();
      if (IsOpen(seed.left, seed.y)) TakeRow(seed.left, seed.y);
    }
    return std::move(spans_);
  }

 private:
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width) + static_cast<std::size_t>(x);
  }

  bool IsOpen(int x, int y) const { return size_.Holds(x, y) && !taken_[Index(x, y)] && isSame_(x, y); }

  void TakeRow(int x, int y) {
    int left = x;
    int right = x;
    while (IsOpen(left - 1, y)) --left;
    while (IsOpen(right + 1, y)) ++right;
    for (int i = left; i <= right; ++i) taken_[Index(i, y)] = true;
    spans_.push_back({y, left, right});
    for (const int beside : {y - 1, y + 1}) {
      for (int i = left; i <= right; ++i) {
        if (IsOpen(i, beside) && (i == left || !IsOpen(i - 1, beside))) waiting_.push_back({beside, i, i});
      }
    }
  }

  Size size_;
  const std::function<bool(int x, int y)>& isSame_;
  std::vector<bool> taken_;
  Spans waiting_;
  Spans spans_;
};

}  // namespace

Spans FloodSpans(Size size, int x, int y, const std::function<bool(int x, int y)>& isSame) {
  if (!size.Holds(x, y)) return {};
  return Flood(size, isSame).From(x, y);
}

}  // namespace tessera
