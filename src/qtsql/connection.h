// A connection over one of the drivers.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <map>
#include <memory>
#include <string>

#include "sql/provider.h"

namespace tessera::qtsql {

// One that may serve again, or whose rows are being read.
using SharedQuery = std::shared_ptr<QSqlQuery>;

class Connection final : public sql::SqlConnection {
 public:
  explicit Connection(const sql::ConnectionTarget& target);
  ~Connection() override;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void Execute(const std::string& text) override;
  std::unique_ptr<sql::RowReader> Query(const sql::SqlChange& query) override;
  std::unique_ptr<sql::RowReader> Stream(const std::string& text) override;
  std::int64_t Change(const sql::SqlChange& change) override;
  sql::SqlValue Insert(const sql::SqlChange& change, const std::string& key) override;
  std::vector<std::string> KeyOf(const std::string& table) override;
  void Begin() override;
  void Commit() override;
  void Rollback() override;
  std::string QuotedColumn(const std::string& name) const override;
  std::string QuotedTable(const std::string& name) const override;
  std::string SameValue(const std::string& quotedColumn, const sql::SqlValue& old) const override;
  std::string InsertDefaults(const std::string& quotedTable) const override;

 private:
  enum class Rows { AtOnce, OneByOne };

  SharedQuery NewQuery(Rows rows) const;
  SharedQuery Prepared(const std::string& text);
  // Runs the statement; fails with the server's own text.
  SharedQuery Run(const sql::SqlChange& statement, Rows rows = Rows::AtOnce);
  void Check(bool done, const char* failing) const;

  sql::ConnectionTarget target_;
  QString name_;  // under which the library keeps the connection
  QSqlDatabase database_;
  std::map<std::string, SharedQuery> prepared_;  // by their text
};

}  // namespace tessera::qtsql
