// The rows behind a `NovoBox` or a `BoxList`: texts, optional attributes, a check mark. All rows and columns
// count from 0. A row that is moved, by a sort or a removal, moves as one number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/text_pool.h"

namespace tessera {

struct CellAttributes {
  std::int32_t fore = 0;
  std::int32_t back = 0;
  std::string font;
  std::int16_t size = 0;
  bool bold = false;
  auto operator<=>(const CellAttributes&) const = default;
  bool HasFontOf(const CellAttributes& other) const {
    return size == other.size && bold == other.bold && font == other.font;
  }
};

class BoxMatrix {
 public:
  explicit BoxMatrix(std::size_t columns = 0, bool attributes = false)
      : columns_(columns), hasAttributes_(attributes) {}

  std::size_t Rows() const { return rows_.size(); }
  std::size_t Columns() const { return columns_; }
  bool HasAttributes() const { return hasAttributes_; }

  // An empty row behind the last one, in constant time.
  void AppendRow();
  void RemoveRow(std::size_t row);

  // The row and column must exist.
  std::string_view Text(std::size_t row, std::size_t column) const;
  void SetText(std::size_t row, std::size_t column, std::string_view text);
  // The attributes of a cell; null while the cell was given none, or without attribute matrices.
  const CellAttributes* Attributes(std::size_t row, std::size_t column) const;
  void SetAttributes(std::size_t row, std::size_t column, const CellAttributes& attributes);
  // The check mark of a row.
  bool Mark(std::size_t row) const { return marks_[rows_[row]]; }
  void SetMark(std::size_t row, bool on) { marks_[rows_[row]] = on; }

  // Orders the first `count` rows by a column's texts, or by the numbers that they begin with; rows that
  // compare equal keep their order. The answer gives each old row its new place.
  std::vector<std::uint32_t> Sort(std::size_t count, std::size_t column, bool numeric, bool descending);

  // Bytes held, for measuring.
  std::size_t Bytes() const;

 private:
  std::size_t Cell(std::size_t row, std::size_t column) const { return rows_[row] * columns_ + column; }
  void ReplacePool();

  std::size_t columns_;
  bool hasAttributes_;
  TextPool pool_;
  std::vector<std::uint32_t> rows_;      // the stored row that stands at each place
  std::vector<std::uint32_t> freeRows_;  // stored rows of removed places
  std::vector<bool> marks_;              // of each stored row
  std::vector<TextPool::Ref> texts_;
  std::vector<std::uint32_t> attributes_;  // 0 none, else 1 + index into distinct_
  std::vector<const CellAttributes*> distinct_;
  std::map<CellAttributes, std::uint32_t> numbers_;
};

// The number by which a numeric column orders a text.
double SortNumber(std::string_view text);

}  // namespace tessera
