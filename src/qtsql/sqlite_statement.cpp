#include "qtsql/sqlite_statement.h"

#include <sqlite3.h>

#include <QSqlDriver>
#include <QSqlResult>
#include <QVariant>

#include "qtsql/values.h"
#include "sql/sql_error.h"
#include "text/code_page.h"

namespace tessera::qtsql {

using sql::ColumnKind;

namespace {

ColumnKind KindOfDeclared(const QString& type) {
  const QString upper = type.toUpper();
  if (upper.contains("INT")) return ColumnKind::Integer;
  if (upper.contains("CHAR") || upper.contains("CLOB") || upper.contains("TEXT")) return ColumnKind::Text;
  if (upper.isEmpty() || upper.contains("BLOB")) return ColumnKind::Any;
  if (upper.contains("REAL") || upper.contains("FLOA") || upper.contains("DOUB")) return ColumnKind::Real;
  // OPEN: beside numbers such a column takes truth words.
  if (upper.contains("BOOL")) return ColumnKind::Truth;
  return ColumnKind::Numeric;
}

}  // namespace

sqlite3_stmt* StatementOf(const QSqlQuery& query) {
  const QVariant handle = query.result()->handle();
  if (qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0) return nullptr;
  return *static_cast<sqlite3_stmt* const*>(handle.constData());
}

std::string OriginOf(sqlite3_stmt* statement, int place) {
  const char* name = sqlite3_column_origin_name(statement, place);
  return name == nullptr ? std::string() : std::string(name);
}

std::map<std::string, ColumnKind> KindsOf(const QSqlDatabase& database, const std::string& table) {
  std::map<std::string, ColumnKind> kinds;
  QSqlQuery query(database);
  query.prepare("SELECT name, type FROM pragma_table_info(?)");
  query.addBindValue(FromUtf8(table));
  query.exec();
  while (query.next())
    kinds.emplace(ToUtf8(query.value(0).toString()), KindOfDeclared(query.value(1).toString()));
  return kinds;
}

bool Step(sqlite3_stmt* statement) {
  const int status = sqlite3_step(statement);
  if (status == SQLITE_ROW) return true;
  if (status == SQLITE_DONE) return false;
  throw sql::SqlError(FromUtf8Lossy(sqlite3_errmsg(sqlite3_db_handle(statement))));
}

void ReadRow(sqlite3_stmt* statement, sql::SqlRow& row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const int place = static_cast<int>(i);
    sql::SqlValue& value = row[i];
    switch (sqlite3_column_type(statement, place)) {
      case SQLITE_INTEGER:
        value.kind = sql::Kind::Integer;
        value.integer = sqlite3_column_int64(statement, place);
        break;
      case SQLITE_FLOAT:
        value.kind = sql::Kind::Real;
        value.real = sqlite3_column_double(statement, place);
        break;
      case SQLITE_TEXT:
        value.kind = sql::Kind::Text;
        value.text.assign(reinterpret_cast<const char*>(sqlite3_column_text(statement, place)),
                          static_cast<std::size_t>(sqlite3_column_bytes(statement, place)));
        break;
      case SQLITE_BLOB: {
        value.kind = sql::Kind::Bytes;
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, place));
        value.text.assign(bytes == nullptr ? "" : bytes,
                          static_cast<std::size_t>(sqlite3_column_bytes(statement, place)));
        break;
      }
      default:
        value.kind = sql::Kind::Null;
    }
  }
}

}  // namespace tessera::qtsql
