#include "controls/box_matrix.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "text/code_page.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {
namespace {

constexpr std::size_t kUnusedWorthCopying = 1024 * 1024;

// Each byte's place in text order, which is that of the characters' 16-bit codes.
std::array<unsigned char, 256> TextOrder() {
  std::array<unsigned char, 256> bytes;
  std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  std::sort(bytes.begin(), bytes.end(),
            [](unsigned char a, unsigned char b) { return CodeOfByte(a) < CodeOfByte(b); });
  std::array<unsigned char, 256> order;
  for (std::size_t i = 0; i < bytes.size(); ++i) order[bytes[i]] = static_cast<unsigned char>(i);
  return order;
}

// The beginning of a text as one number that orders as the text does; where two agree the texts decide.
std::uint64_t PrefixKey(std::string_view text, const std::array<unsigned char, 256>& order) {
  std::uint64_t key = 0;
  for (std::size_t i = 0; i < sizeof key; ++i) {
    key = key << 8 | (i < text.size() ? order[static_cast<unsigned char>(text[i])] : 0);
  }
  return key;
}

// How many characters both texts begin with.
std::size_t SharedBeginning(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

template <typename Key>
struct SortEntry {
  Key key;
  TextPool::Ref text;
  std::uint32_t row;
};

template <typename Key, typename Less>
void SortEntries(std::vector<SortEntry<Key>>& entries, bool descending, Less less) {
  if (descending) {
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const auto& a, const auto& b) { return less(b, a); });
  } else {
    std::stable_sort(entries.begin(), entries.end(), less);
  }
}

}  // namespace

// KEPT: "." is a decimal mark here as "," is, so "1.234,5" orders as 1,234
// (NovoBoxTest.NumericColumnsTakeBothMarksForTheDecimalOne).
// OPEN: what is no number as a whole orders by the number that it begins with.
double SortNumber(std::string_view text) {
  return LeadingNumber(Replace(text, ',', '.'));
}

void BoxMatrix::AppendRow() {
  if (!freeRows_.empty()) {
    rows_.push_back(freeRows_.back());
    freeRows_.pop_back();
    return;
  }
  rows_.push_back(static_cast<std::uint32_t>(marks_.size()));
  marks_.push_back(false);
  texts_.resize(texts_.size() + columns_);
  if (hasAttributes_) attributes_.resize(texts_.size());
}

void BoxMatrix::RemoveRow(std::size_t row) {
  for (std::size_t column = 0; column < columns_; ++column) {
    SetText(row, column, "");
    if (hasAttributes_) attributes_[Cell(row, column)] = 0;
  }
  SetMark(row, false);
  freeRows_.push_back(rows_[row]);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

std::string_view BoxMatrix::Text(std::size_t row, std::size_t column) const {
  return TextPool::Text(texts_[Cell(row, column)]);
}

void BoxMatrix::SetText(std::size_t row, std::size_t column, std::string_view text) {
  TextPool::Ref& cell = texts_[Cell(row, column)];
  const TextPool::Ref before = cell;
  cell = pool_.Store(text);  // before the drop: the text may be this cell's own
  pool_.Drop(before);
  if (pool_.Unused() > kUnusedWorthCopying && pool_.Unused() > pool_.Used() / 2) ReplacePool();
}

const CellAttributes* BoxMatrix::Attributes(std::size_t row, std::size_t column) const {
  if (!hasAttributes_) return nullptr;
  const std::uint32_t number = attributes_[Cell(row, column)];
  return number == 0 ? nullptr : distinct_[number - 1];
}

// Cells of equal attributes share them, since a list has few different ones.
void BoxMatrix::SetAttributes(std::size_t row, std::size_t column, const CellAttributes& attributes) {
  if (!hasAttributes_) return;
  const auto next = static_cast<std::uint32_t>(distinct_.size() + 1);
  const auto [place, isNew] = numbers_.try_emplace(attributes, next);
  if (isNew) distinct_.push_back(&place->first);
  attributes_[Cell(row, column)] = place->second;
}

std::vector<std::uint32_t> BoxMatrix::Sort(std::size_t count, std::size_t column, bool numeric,
                                           bool descending) {
  std::vector<std::uint32_t> place(count);
  std::vector<std::uint32_t> sorted(count);
  const auto order = [&]<typename Key>(Key, auto keyOf, auto less) {
    std::vector<SortEntry<Key>> entries(count);
    for (std::uint32_t row = 0; row < count; ++row) {
      const TextPool::Ref ref = texts_[Cell(row, column)];
      entries[row] = {keyOf(TextPool::Text(ref)), ref, row};
    }
    SortEntries(entries, descending, less);
    for (std::uint32_t to = 0; to < count; ++to) {
      place[entries[to].row] = to;
      sorted[to] = rows_[entries[to].row];
    }
  };
  if (numeric) {
    order(
        0.0, [](std::string_view text) { return SortNumber(text); },
        [](const auto& a, const auto& b) { return a.key < b.key; });
  } else {
    // FAST: behind what all texts begin with, most pairs differ in their first eight characters, and the key
    // orders those as CompareText does.
    const auto bytes = TextOrder();
    std::string_view shared = count == 0 ? std::string_view() : Text(0, column);
    for (std::size_t row = 0; row < count && !shared.empty(); ++row) {
      shared = shared.substr(0, SharedBeginning(shared, Text(row, column)));
    }
    order(
        std::uint64_t{0}, [&](std::string_view text) { return PrefixKey(text.substr(shared.size()), bytes); },
        [](const auto& a, const auto& b) {
          if (a.key != b.key) return a.key < b.key;
          return CompareText(TextPool::Text(a.text), TextPool::Text(b.text)) < 0;
        });
  }
  std::copy(sorted.begin(), sorted.end(), rows_.begin());
  return place;
}

std::size_t BoxMatrix::Bytes() const {
  return pool_.Used() + texts_.capacity() * sizeof(TextPool::Ref) +
         (rows_.capacity() + attributes_.capacity() + freeRows_.capacity()) * sizeof(std::uint32_t) +
         marks_.capacity() / 8;
}

void BoxMatrix::ReplacePool() {
  TextPool fresh;
  for (TextPool::Ref& text : texts_) text = fresh.Store(TextPool::Text(text));
  pool_ = std::move(fresh);
}

}  // namespace tessera
