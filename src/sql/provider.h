// What the word `SQL` needs of whoever reaches databases: connections, queries that are read once from the
// first row to the last, and changes with bound values. The rules of recordsets are told in recordset.h, over
// this interface. Statements and names are UTF-8; every operation may throw `SqlError`.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sql/connection_text.h"
#include "sql/sql_value.h"

namespace tessera::sql {

struct SqlColumn {
  std::string name;  // as the query calls it
  // Where its values stand; an empty table is that of an expression.
  std::string baseTable;
  std::string baseName;
  ColumnKind kind = ColumnKind::Any;
};

using SqlRow = std::vector<SqlValue>;

// A query's rows, one after the other.
class RowReader {
 public:
  virtual ~RowReader() = default;
  // What the columns are, which some databases have to be asked for.
  virtual std::vector<SqlColumn> Columns() = 0;
  // The next row into `row`; false behind the last one.
  virtual bool Next(SqlRow& row) = 0;
};

// A statement with a "?" for each of its values.
struct SqlChange {
  std::string text;
  std::vector<SqlValue> values;
};

class SqlConnection {
 public:
  virtual ~SqlConnection() = default;

  // Runs a statement; what it answers is not kept.
  virtual void Execute(const std::string& text) = 0;
  virtual std::unique_ptr<RowReader> Query(const SqlChange& query) = 0;
  // A query over a connection of its own, whose rows stay with the server until they are asked for; null
  // where this database can't have a second connection.
  virtual std::unique_ptr<RowReader> Stream(const std::string& text) = 0;

  // The number of rows that the statement touched.
  virtual std::int64_t Change(const SqlChange& change) = 0;
  // Inserts a row into `table`. The answer is the new row's value of `key`, NULL where `key` is empty or the
  // database tells none.
  virtual SqlValue Insert(const SqlChange& change, const std::string& key) = 0;

  // The columns of the table's primary key; none where it has none or is no table.
  virtual std::vector<std::string> KeyOf(const std::string& table) = 0;

  virtual void Begin() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() = 0;

  // A column's or a table's name, fit to stand in a statement.
  virtual std::string QuotedColumn(const std::string& name) const = 0;
  virtual std::string QuotedTable(const std::string& name) const = 0;
  // A condition with one "?" that holds where `quotedColumn` still has the value `old`, which is not NULL.
  virtual std::string SameValue(const std::string& quotedColumn, const SqlValue& old) const = 0;
  // An insert into `quotedTable` that names no column.
  virtual std::string InsertDefaults(const std::string& quotedTable) const = 0;
};

class SqlProvider {
 public:
  virtual ~SqlProvider() = default;
  virtual std::unique_ptr<SqlConnection> Open(const ConnectionTarget& target) = 0;
};

}  // namespace tessera::sql
