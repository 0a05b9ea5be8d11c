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

[[noreturn]] void FailOf(const QSqlQuery& query) {
  const QSqlError error = query.lastError();
  Fail(error);
}

class Reader final : public sql::RowReader {
 public:
  // `connection` is the stream's own; null where the query runs on another's.
  Reader(SharedQuery query, const QSqlDatabase& database, Engine engine,
         std::unique_ptr<Connection> connection)
      : connection_(std::move(connection)),
        query_(std::move(query)),
        database_(database),
        engine_(engine),
        statement_(StatementOf(*query_)),
        record_(query_->record()) {
    for (int i = 0; i < record_.count(); ++i)
      areDecimals_.push_back(statement_ == nullptr &&
                             KindOf(record_.field(i), engine_) == sql::ColumnKind::Decimal);
  }
  // What a statement that serves again holds of the database is given back.
  ~Reader() override { query_->finish(); }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  std::vector<SqlColumn> Columns() override {
    std::vector<SqlColumn> columns;
    for (int i = 0; i < record_.count(); ++i) {
      const QSqlField field = record_.field(i);
      SqlColumn column;
      column.name = ToUtf8(field.name());
      column.baseTable = ToUtf8(field.tableName());
      // OPEN: where the driver tells only the name, a column under another name is taken for that name; the
      // server refuses to write what its table lacks.
      column.baseName = statement_ != nullptr ? OriginOf(statement_, i) : column.name;
      if (column.baseName.empty()) column.baseTable.clear();
      if (statement_ == nullptr) column.kind = KindOf(field, engine_);
      columns.push_back(std::move(column));
    }
    if (statement_ != nullptr) TakeDeclaredKinds(columns);
    return columns;
  }

  bool Next(SqlRow& row) override {
    row.resize(static_cast<std::size_t>(record_.count()));
    if (statement_ != nullptr) {
      // The query has taken its first step when it was run.
      const bool found = std::exchange(isFirst_, false) ? query_->next() : Step(statement_);
      if (found) ReadRow(statement_, row);
      return found;
    }
    if (!query_->next()) {
      const QSqlError error = query_->lastError();
      if (error.type() != QSqlError::NoError) Fail(error);
      return false;
    }
    for (int i = 0; i < record_.count(); ++i) row[static_cast<std::size_t>(i)] = ValueAt(i);
    return true;
  }

 private:
  void TakeDeclaredKinds(std::vector<SqlColumn>& columns) const {
    std::map<std::string, std::map<std::string, sql::ColumnKind>> kinds;
    for (SqlColumn& column : columns) {
      if (column.baseTable.empty()) continue;
      const auto [table, isNew] = kinds.try_emplace(column.baseTable);
      if (isNew) table->second = KindsOf(database_, column.baseTable);
      column.kind = table->second[column.baseName];
    }
  }

  // With all its digits an exact decimal comes as a text.
  SqlValue ValueAt(int place) const {
    SqlValue value = FromVariant(query_->value(place));
    if (value.kind == sql::Kind::Text && areDecimals_[static_cast<std::size_t>(place)])
      value.kind = sql::Kind::Decimal;
    return value;
  }

  std::unique_ptr<Connection> connection_;
  SharedQuery query_;
  QSqlDatabase database_;
  Engine engine_;
  sqlite3_stmt* statement_;  // of a database file's query
  QSqlRecord record_;
  std::vector<bool> areDecimals_;
  bool isFirst_ = true;
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
  prepared_.clear();
  database_.close();
  database_ = QSqlDatabase();
  QSqlDatabase::removeDatabase(name_);
}

SharedQuery Connection::NewQuery(Rows rows) const {
  auto query = std::make_shared<QSqlQuery>(database_);
  // PostgreSQL's driver names no tables while it reads row by row.
  query->setForwardOnly(rows == Rows::OneByOne || target_.engine != Engine::PostgreSql);
  query->setNumericalPrecisionPolicy(QSql::HighPrecision);
  return query;
}

// FAST: a database file's statement is prepared once and serves again; the library prepares it anew by itself
// where the tables have changed.
SharedQuery Connection::Prepared(const std::string& text) {
  constexpr std::size_t kKept = 16;
  if (const auto found = prepared_.find(text); found != prepared_.end()) return found->second;
  SharedQuery query = NewQuery(Rows::AtOnce);
  if (!query->prepare(FromUtf8(text))) FailOf(*query);
  if (target_.engine != Engine::Sqlite) return query;
  if (prepared_.size() == kKept) prepared_.clear();
  prepared_.emplace(text, query);
  return query;
}

SharedQuery Connection::Run(const SqlChange& statement, Rows rows) {
  if (statement.values.empty()) {
    SharedQuery query = NewQuery(rows);
    if (!query->exec(FromUtf8(statement.text))) FailOf(*query);
    return query;
  }
  SharedQuery query = Prepared(statement.text);
  for (std::size_t i = 0; i < statement.values.size(); ++i)
    query->bindValue(static_cast<int>(i), ToVariant(statement.values[i]));
  if (!query->exec()) FailOf(*query);
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
  SharedQuery run = Run(query);
  if (!run->isSelect()) throw SqlError(FromUtf8Lossy("A consulta não devolve registros."));
  return std::make_unique<Reader>(std::move(run), database_, target_.engine, nullptr);
}

std::unique_ptr<sql::RowReader> Connection::Stream(const std::string& text) {
  if (target_.engine == Engine::Sqlite && target_.path == ":memory:") return nullptr;
  auto own = std::make_unique<Connection>(target_);
  SharedQuery run = own->Run({text, {}}, Rows::OneByOne);
  if (!run->isSelect()) throw SqlError(FromUtf8Lossy("A consulta não devolve registros."));
  const QSqlDatabase database = own->database_;
  return std::make_unique<Reader>(std::move(run), database, target_.engine, std::move(own));
}

std::int64_t Connection::Change(const SqlChange& change) {
  return Run(change)->numRowsAffected();
}

SqlValue Connection::Insert(const SqlChange& change, const std::string& key) {
  if (target_.engine == Engine::PostgreSql && !key.empty()) {
    const SharedQuery query = Run({change.text + " RETURNING " + QuotedColumn(key), change.values});
    return query->next() ? FromVariant(query->value(0)) : SqlValue();
  }
  const SharedQuery query = Run(change);
  return key.empty() ? SqlValue() : FromVariant(query->lastInsertId());
}

std::vector<std::string> Connection::KeyOf(const std::string& table) {
  const QSqlIndex index = database_.primaryIndex(FromUtf8(table));
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(index.count()));
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
