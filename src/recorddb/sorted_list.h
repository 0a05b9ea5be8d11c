// `LstOrdem`: a list that keeps its entries in ascending order. An entry is a key and a physical position in
// six digits; keys compare letter by letter as `Procure` does, so that it finds each of them, then the digits
// decide. A deleted record, whose key is empty, stands before all others. Entries may hold zero bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

inline constexpr std::size_t kPositionDigits = 6;

class SortedList {
 public:
  std::size_t size() const { return size_; }
  void Clear();

  // The entry at a place from 0; an empty text outside the list.
  std::string_view At(std::size_t place) const;

  void Add(std::string entry);
  void Remove(std::size_t place);

  // Replaces the content: n log n for n entries in any order.
  void Fill(std::vector<std::string> entries);

 private:
  // Entries stand in blocks, so that an entry added to a long list moves only its own block.
  static constexpr std::size_t kBlock = 4096;

  struct Place {
    std::size_t block;
    std::size_t offset;
  };
  Place Locate(std::size_t place) const;

  std::vector<std::vector<std::string>> blocks_;
  std::size_t size_ = 0;
};

// True when entry `a` stands before entry `b`.
bool ListOrder(std::string_view a, std::string_view b);

}  // namespace tessera
