// Writes the records of one query back to the table that they come from: by primary key, and by the old
// values, so that what another user has changed or removed is an error and nothing is overwritten. Values are
// bound.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "sql/provider.h"

namespace tessera::sql {

// New values for the columns of a query; nothing for a column that stays.
using Changes = std::vector<std::optional<SqlValue>>;

class RecordWriter {
 public:
  RecordWriter(SqlConnection& connection, std::vector<SqlColumn> columns);

  // Fails where the query's columns come from no single table, or where `column` is an expression.
  void RequireTable() const;
  void RequireColumn(std::size_t column) const;

  // The changed fields in one statement. The answer is the record as the database now has it.
  SqlRow Update(const SqlRow& old, const Changes& changes);
  SqlRow Insert(const Changes& changes);
  void Delete(const SqlRow& old);

 private:
  enum class OldValues { Changed, All };

  bool IsOfTable(std::size_t column) const { return !columns_[column].baseTable.empty(); }
  std::string Quoted(std::size_t column) const { return connection_.QuotedColumn(columns_[column].baseName); }
  // " WHERE ..." of the record, its values going to `values`.
  std::string Where(const SqlRow& old, const Changes& changes, OldValues which,
                    std::vector<SqlValue>& values) const;
  void AddCondition(std::string& text, std::vector<SqlValue>& values, std::size_t column,
                    const SqlValue& old) const;
  void ChangeOne(const std::string& statement, std::vector<SqlValue> values, const std::string& where,
                 std::size_t whereValues);
  // The record of that key with what the database made of its values.
  SqlRow Reread(SqlRow row) const;

  SqlConnection& connection_;
  std::vector<SqlColumn> columns_;
  std::string table_;             // quoted; empty where there is no single one
  std::vector<std::size_t> key_;  // its key's columns in the query; empty where the query lacks part of it
  std::string automaticKey_;      // the one column of a key of one
};

}  // namespace tessera::sql
