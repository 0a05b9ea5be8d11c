#include "qtsql/sqlite_columns.h"

#include <sqlite3.h>

#include <QSqlDriver>
#include <QSqlResult>
#include <QVariant>

#include "qtsql/values.h"

namespace tessera::qtsql {

using sql::ColumnKind;

namespace {

ColumnKind KindOfDeclared(const QString& type) {
  const QString upper = type.toUpper();
  if (upper.contains("INT")) return ColumnKind::Integer;
  if (upper.contains("CHAR") || upper.contains("CLOB") || upper.contains("TEXT")) return ColumnKind::Text;
  if (upper.isEmpty() || upper.contains("BLOB")) return ColumnKind::Any;
  if (upper.contains("REAL") || upper.contains("FLOA") || upper.contains("DOUB")) return ColumnKind::Real;
  if (upper.contains("BOOL")) return ColumnKind::Truth;
  return ColumnKind::Numeric;
}

}  // namespace

std::string OriginOf(const QSqlQuery& query, int place) {
  const QVariant handle = query.result()->handle();
  if (qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0) return {};
  auto* const statement = *static_cast<sqlite3_stmt* const*>(handle.constData());
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

}  // namespace tessera::qtsql
