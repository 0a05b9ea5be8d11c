#include "recorddb/sorted_list.h"

#include <algorithm>
#include <cstdint>

#include "recorddb/comparable_text.h"
#include "text/one_based.h"

namespace tessera {

namespace {

std::string_view KeyOf(std::string_view entry) {
  return entry.substr(0, entry.size() - std::min(kPositionDigits, entry.size()));
}

// How many characters all keys begin with alike.
std::size_t SharedPrefix(const std::vector<std::string>& entries) {
  if (entries.empty()) return 0;
  const std::string_view first = KeyOf(entries.front());
  std::size_t shared = first.size();
  for (const std::string& entry : entries) {
    const std::string_view key = KeyOf(entry);
    const auto end = std::mismatch(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(shared),
                                   key.begin(), key.end());
    shared = static_cast<std::size_t>(end.first - first.begin());
  }
  return shared;
}

// The places of the entries in ascending order, equal ones in the order of their coming. Most pairs are told
// apart by the eight characters behind what all keys share, held as one number that orders as they do.
std::vector<std::uint32_t> SortedOrder(const std::vector<std::string>& entries) {
  struct Item {
    std::uint64_t begin;
    std::uint32_t index;
  };
  const std::size_t shared = SharedPrefix(entries);
  std::vector<Item> items(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::string_view key = KeyOf(entries[i]).substr(shared);
    for (std::size_t c = 0; c < sizeof(Item::begin); ++c) {
      items[i].begin = (items[i].begin << 8) | (c < key.size() ? Folded(key[c]) : 0u);
    }
    items[i].index = static_cast<std::uint32_t>(i);
  }
  std::sort(items.begin(), items.end(), [&](const Item& a, const Item& b) {
    if (a.begin != b.begin) return a.begin < b.begin;
    if (ListOrder(entries[a.index], entries[b.index])) return true;
    return !ListOrder(entries[b.index], entries[a.index]) && a.index < b.index;
  });
  std::vector<std::uint32_t> order(items.size());
  std::transform(items.begin(), items.end(), order.begin(), [](const Item& item) { return item.index; });
  return order;
}

}  // namespace

// OPEN: accents count in the order as little as in the search; else records that begin with one would stand
// where they are never found.
bool ListOrder(std::string_view a, std::string_view b) {
  const int keys = CompareFolded(KeyOf(a), KeyOf(b));
  return keys != 0 ? keys < 0 : CompareFolded(Right(a, kPositionDigits), Right(b, kPositionDigits)) < 0;
}

void SortedList::Clear() {
  blocks_.clear();
  size_ = 0;
}

SortedList::Place SortedList::Locate(std::size_t place) const {
  std::size_t block = 0;
  while (place >= blocks_[block].size()) place -= blocks_[block++].size();
  return {block, place};
}

std::string_view SortedList::At(std::size_t place) const {
  if (place >= size_) return {};
  const Place at = Locate(place);
  return blocks_[at.block][at.offset];
}

void SortedList::Add(std::string entry) {
  if (blocks_.empty()) blocks_.emplace_back();
  // The last block whose first entry does not stand behind the new one.
  auto block = std::upper_bound(
      blocks_.begin(), blocks_.end(), entry,
      [](const std::string& text, const auto& b) { return !b.empty() && ListOrder(text, b.front()); });
  if (block != blocks_.begin()) --block;
  block->insert(std::upper_bound(block->begin(), block->end(), entry, ListOrder), std::move(entry));
  ++size_;
  if (block->size() > 2 * kBlock) {
    const auto half = block->begin() + kBlock;
    std::vector<std::string> second(std::make_move_iterator(half), std::make_move_iterator(block->end()));
    block->erase(half, block->end());
    blocks_.insert(std::next(block), std::move(second));
  }
}

void SortedList::Remove(std::size_t place) {
  if (place >= size_) return;
  const Place at = Locate(place);
  auto& block = blocks_[at.block];
  block.erase(block.begin() + static_cast<std::ptrdiff_t>(at.offset));
  if (block.empty()) blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(at.block));
  --size_;
}

void SortedList::Fill(std::vector<std::string> entries) {
  const std::vector<std::uint32_t> order = SortedOrder(entries);
  Clear();
  size_ = entries.size();
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i % kBlock == 0) blocks_.emplace_back().reserve(kBlock);
    blocks_.back().push_back(std::move(entries[order[i]]));
  }
}

}  // namespace tessera
