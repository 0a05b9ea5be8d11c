#include "qtsql/connection.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QUuid>

#include "qtsql/dialect.h"
#include "qtsql/sqlite_statement.h"
#include "qtsql/values.h"
#include "sql/sql_error.h"
#include "text/code_page.h"

namespace tessera::qtsql {

using sql::Engine;
using sql::SqlChange;
using sql::SqlColumn;
using sql::SqlError;
using sql::SqlRow;
using sql::SqlValue;

namespace {

[[noreturn]] void Fail(const QSqlError& error) {
  const QString said = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
  throw SqlError(FromUtf8Lossy(ToUtf8(said.trimmed())));
}

class Reader final : public sql::RowReader {
 public:
  // `connection` is the stream's own; null where the query runs on another's.
  Reader(QSqlQuery query, const QSqlDatabase& database, Engine engine, std::unique_ptr<Connection> connection)
      : connection_(std::move(connection)), query_(std::move(query)), statement_(StatementOf(query_)) {
    const QSqlRecord record = query_.record();
    std::map<std::string, std::map<std::string, sql::ColumnKind>> kinds;
    for (int i = 0; i < record.count(); ++i) {
      const QSqlField field = record.field(i);
      SqlColumn column;
      column.name = ToUtf8(field.name());
      column.baseTable = ToUtf8(field.tableName());
      column.baseName = engine == Engine::Sqlite ? OriginOf(statement_, i) : column.name;
      if (column.baseName.empty()) column.baseTable.clear();
      if (engine != Engine::Sqlite) {
        column.kind = KindOf(field, engine);
      } else if (!column.baseTable.empty()) {
        const auto [table, isNew] = kinds.try_emplace(column.baseTable);
        if (isNew) table->second = KindsOf(database, column.baseTable);
        column.kind = table->second[column.baseName];
      }
      columns_.push_back(std::move(column));
    }
  }

  const std::vector<SqlColumn>& Columns() const override { return columns_; }

  bool Next(SqlRow& row) override {
    row.resize(columns_.size());
    if (statement_ != nullptr) {
      // The query has taken its first step when it was run.
      const bool found = std::exchange(isFirst_, false) ? query_.next() : Step(statement_);
      if (found) ReadRow(statement_, row);
      return found;
    }
    if (!query_.next()) {
      const QSqlError error = query_.lastError();
      if (error.type() != QSqlError::NoError) Fail(error);
      return false;
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row[i] = FromVariant(query_.value(static_cast<int>(i)));
      // With all its digits an exact decimal comes as a text.
      if (columns_[i].kind == sql::ColumnKind::Decimal && row[i].kind == sql::Kind::Text)
        row[i].kind = sql::Kind::Decimal;
    }
    return true;
  }

 private:
  std::unique_ptr<Connection> connection_;
  QSqlQuery query_;
  sqlite3_stmt* statement_;  // of a database file's query
  bool isFirst_ = true;
  std::vector<SqlColumn> columns_;
};

}  // namespace

Connection::Connection(const sql::ConnectionTarget& target)
    : target_(target), name_(QUuid::createUuid().toString()) {
  const Driver driver = DriverOf(target.engine);
  if (!QSqlDatabase::isDriverAvailable(driver.name))
    throw SqlError(std::string("Instale o pacote ").append(driver.package));
  database_ = QSqlDatabase::addDatabase(driver.name, name_);
  Aim(database_, target);
  if (database_.open()) {
    // Its remarks would go to the terminal.
    if (target.engine == Engine::PostgreSql) Execute("SET client_min_messages TO error");
    return;
  }
  const QSqlError error = database_.lastError();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
  Fail(error);
}

Connection::~Connection() {
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
}

QSqlQuery Connection::Run(const SqlChange& statement, Rows rows) {
  QSqlQuery query(database_);
  // PostgreSQL's driver names no tables while it reads row by row.
  query.setForwardOnly(rows == Rows::OneByOne || target_.engine != Engine::PostgreSql);
  query.setNumericalPrecisionPolicy(QSql::HighPrecision);
  const QString text = FromUtf8(statement.text);
  bool done = false;
  if (statement.values.empty()) {
    done = query.exec(text);
  } else {
    done = query.prepare(text);
    for (const SqlValue& value : statement.values) query.addBindValue(ToVariant(value));
    done = done && query.exec();
  }
  if (!done) {
    const QSqlError error = query.lastError();
    Fail(error);
  }
  return query;
}

void Connection::Check(bool done, const char* failing) const {
  if (done) return;
  const QSqlError error = database_.lastError();
  if (error.type() == QSqlError::NoError) throw SqlError(std::string(failing));
  Fail(error);
}

void Connection::Execute(const std::string& text) {
  Run({text, {}});
}

std::unique_ptr<sql::RowReader> Connection::Query(const SqlChange& query) {
  QSqlQuery run = Run(query);
  if (!run.isSelect()) throw SqlError(FromUtf8Lossy("A consulta não devolve registros."));
  return std::make_unique<Reader>(std::move(run), database_, target_.engine, nullptr);
}

std::unique_ptr<sql::RowReader> Connection::Stream(const std::string& text) {
  if (target_.engine == Engine::Sqlite && target_.path == ":memory:") return nullptr;
  auto own = std::make_unique<Connection>(target_);
  QSqlQuery run = own->Run({text, {}}, Rows::OneByOne);
  if (!run.isSelect()) throw SqlError(FromUtf8Lossy("A consulta não devolve registros."));
  const QSqlDatabase database = own->database_;
  return std::make_unique<Reader>(std::move(run), database, target_.engine, std::move(own));
}

std::int64_t Connection::Change(const SqlChange& change) {
  return Run(change).numRowsAffected();
}

SqlValue Connection::Insert(const SqlChange& change, const std::string& key) {
  if (target_.engine == Engine::PostgreSql && !key.empty()) {
    QSqlQuery query = Run({change.text + " RETURNING " + QuotedColumn(key), change.values});
    return query.next() ? FromVariant(query.value(0)) : SqlValue();
  }
  const QSqlQuery query = Run(change);
  return key.empty() ? SqlValue() : FromVariant(query.lastInsertId());
}

std::vector<std::string> Connection::KeyOf(const std::string& table) {
  const QSqlIndex index = database_.primaryIndex(FromUtf8(table));
  std::vector<std::string> names;
  for (int i = 0; i < index.count(); ++i) names.push_back(ToUtf8(index.fieldName(i)));
  return names;
}

void Connection::Begin() {
  Check(database_.transaction(), "transaction");
}

void Connection::Commit() {
  Check(database_.commit(), "commit");
}

void Connection::Rollback() {
  database_.rollback();
}

std::string Connection::QuotedColumn(const std::string& name) const {
  return ToUtf8(database_.driver()->escapeIdentifier(FromUtf8(name), QSqlDriver::FieldName));
}

std::string Connection::QuotedTable(const std::string& name) const {
  return ToUtf8(database_.driver()->escapeIdentifier(FromUtf8(name), QSqlDriver::TableName));
}

std::string Connection::SameValue(const std::string& quotedColumn, const SqlValue& old) const {
  return qtsql::SameValue(target_.engine, quotedColumn, old);
}

std::string Connection::InsertDefaults(const std::string& quotedTable) const {
  return qtsql::InsertDefaults(target_.engine, quotedTable);
}

}  // namespace tessera::qtsql
