// The rows of a recordset's copy, packed: a row takes the bytes of its values and eight more, so that a
// recordset of a million rows costs little more than its data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sql/provider.h"

namespace tessera::sql {

class RowTable {
 public:
  std::size_t size() const { return rows_.size(); }

  void Append(const SqlRow& row);
  void Replace(std::size_t row, const SqlRow& values);
  void Erase(std::size_t row) { rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row)); }

  SqlValue Read(std::size_t row, std::size_t column) const;
  SqlRow ReadRow(std::size_t row) const;

 private:
  // `rows_` tells where each row's bytes begin. The bytes of a replaced or erased row stay until the end.
  const char* Store(const SqlRow& row);

  std::vector<const char*> rows_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
  std::string packed_;
};

}  // namespace tessera::sql
