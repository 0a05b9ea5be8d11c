// Rows from outside, read from the first to the last as often as is wanted: what `tessera bd import` takes
// in.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "values/value.h"

namespace tessera {

// A cell is the empty value, a number or a text in program text.
using ImportedRow = std::vector<Value>;

class RowSource {
 public:
  virtual ~RowSource() = default;
  // The names of the columns, in program text.
  virtual const std::vector<std::string>& Columns() const = 0;
  // Goes back before the first row.
  virtual void Rewind() = 0;
  // The next row, with a cell for each column; false behind the last one, or where it can't be read.
  virtual bool Next(ImportedRow& row) = 0;
  // What went wrong while rows were read; empty where nothing did. In UTF-8.
  virtual std::string Problem() const = 0;
};

using OpenedSource = std::variant<std::unique_ptr<RowSource>, std::string>;

// A text of fields (RFC 4180) whose first line names the columns, parted by ";", by "," or by tabs, whichever
// that line has most of. UTF-8, or Windows-1252 where it is not. The message of a failure is UTF-8.
OpenedSource OpenCsv(const std::string& path);

// A table of an SQLite file; without a name the only one there is.
OpenedSource OpenSqlite(const std::string& path, const std::string& table);

}  // namespace tessera
