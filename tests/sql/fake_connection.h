// A connection without a database: it answers one query with the rows that a test gives it, keeps what it is
// told to change, and can refuse.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sql/provider.h"
#include "sql/sql_error.h"

namespace tessera::test {

using sql::Kind;
using sql::SqlChange;
using sql::SqlColumn;
using sql::SqlRow;
using sql::SqlValue;

inline SqlValue Integer(std::int64_t number) {
  return SqlValue::Of(Kind::Integer, number);
}
inline SqlValue Text(std::string text) {
  return SqlValue::Of(Kind::Text, std::move(text));
}

class FakeConnection : public sql::SqlConnection {
 public:
  // A table "t" with the key "id" and a text "nome".
  std::vector<SqlColumn> columns = {{"id", "t", "id", sql::ColumnKind::Integer},
                                    {"nome", "t", "nome", sql::ColumnKind::Text}};
  std::vector<std::string> key = {"id"};
  std::vector<SqlRow> rows;
  std::vector<SqlRow> reread;  // what the look at a written record finds, the next one first
  std::vector<std::string> log;
  std::int64_t touched = 1;
  bool refuses = false;

  void Execute(const std::string& text) override { log.push_back(text); }
  std::unique_ptr<sql::RowReader> Query(const SqlChange& query) override {
    if (query.values.empty()) return std::make_unique<Reader>(columns, rows);
    if (query.text.starts_with("SELECT COUNT")) return std::make_unique<Reader>(columns, counted);
    std::vector<SqlRow> found;
    if (!reread.empty()) {
      found.push_back(reread.front());
      reread.erase(reread.begin());
    }
    return std::make_unique<Reader>(columns, found);
  }
  std::unique_ptr<sql::RowReader> Stream(const std::string&) override {
    return std::make_unique<Reader>(columns, rows);
  }
  std::int64_t Change(const SqlChange& change) override {
    Log(change);
    return touched;
  }
  SqlValue Insert(const SqlChange& change, const std::string&) override {
    Log(change);
    return Integer(nextKey++);
  }
  std::vector<std::string> KeyOf(const std::string&) override { return key; }
  void Begin() override { log.emplace_back("BEGIN"); }
  void Commit() override { log.emplace_back("COMMIT"); }
  void Rollback() override { log.emplace_back("ROLLBACK"); }
  std::string QuotedColumn(const std::string& name) const override { return name; }
  std::string QuotedTable(const std::string& name) const override { return name; }
  std::string SameValue(const std::string& column, const SqlValue&) const override { return column + " = ?"; }
  std::string InsertDefaults(const std::string& table) const override {
    return "INSERT INTO " + table + " ()";
  }

  std::int64_t nextKey = 100;
  std::vector<SqlRow> counted = {{Integer(1)}};

 private:
  class Reader final : public sql::RowReader {
   public:
    Reader(std::vector<SqlColumn> columns, std::vector<SqlRow> rows)
        : columns_(std::move(columns)), rows_(std::move(rows)) {}
    std::vector<SqlColumn> Columns() override { return columns_; }
    bool Next(SqlRow& row) override {
      if (next_ == rows_.size()) return false;
      row = rows_[next_++];
      return true;
    }

   private:
    std::vector<SqlColumn> columns_;
    std::vector<SqlRow> rows_;
    std::size_t next_ = 0;
  };

  // The statement with its values in the places of the marks.
  void Log(const SqlChange& change) {
    if (refuses) throw sql::SqlError(std::string_view("recusado"));
    std::string text;
    std::size_t value = 0;
    for (const char c : change.text) {
      if (c != '?') {
        text += c;
        continue;
      }
      const SqlValue& bound = change.values.at(value++);
      text += bound.kind == Kind::Null      ? "NULL"
              : bound.kind == Kind::Integer ? std::to_string(bound.integer)
                                            : "'" + bound.text + "'";
    }
    log.push_back(text);
  }
};

}  // namespace tessera::test
