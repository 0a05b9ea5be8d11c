#include "qtsql/dialect.h"

#include "qtsql/values.h"
#include "text/code_page.h"

namespace tessera::qtsql {

using sql::ConnectionTarget;
using sql::Engine;
using sql::Kind;

namespace {

QString Text(const std::string& programText) {
  return FromUtf8(tessera::ToUtf8(programText));
}

}  // namespace

Driver DriverOf(Engine engine) {
  switch (engine) {
    case Engine::Sqlite:
      return {"QSQLITE", "libqt6sql6-sqlite"};
    case Engine::PostgreSql:
      return {"QPSQL", "libqt6sql6-psql"};
    case Engine::MariaDb:
      return {"QMYSQL", "libqt6sql6-mysql"};
    case Engine::Odbc:
      break;
  }
  return {"QODBC", "libqt6sql6-odbc"};
}

void Aim(QSqlDatabase& database, const ConnectionTarget& target) {
  if (target.engine == Engine::Sqlite) {
    database.setDatabaseName(FromUtf8(target.path));
    return;
  }
  if (target.engine == Engine::Odbc) {
    // A driver of this kind refuses a text that ends in ";".
    std::string whole = target.whole;
    while (whole.ends_with(';') || whole.ends_with(' ')) whole.pop_back();
    database.setDatabaseName(Text(whole));
    return;
  }
  database.setHostName(Text(target.server));
  if (!target.port.empty()) database.setPort(Text(target.port).toInt());
  database.setDatabaseName(Text(target.database));
  database.setUserName(Text(target.user));
  database.setPassword(Text(target.password));
  // A change that leaves a value as it was counts as a hit too.
  if (target.engine == Engine::MariaDb) database.setConnectOptions("CLIENT_FOUND_ROWS=1");
}

std::string SameValue(Engine engine, const std::string& column, const sql::SqlValue& old) {
  const bool isText = old.kind == Kind::Text;
  // A column may compare its texts blind to case; what another user changed would be overwritten then.
  if (engine == Engine::Sqlite && isText) return column + " = ? COLLATE BINARY";
  if (engine == Engine::MariaDb && isText) return column + " = ? COLLATE utf8mb4_bin";
  // The driver reads milliseconds, the server may keep more.
  if (engine == Engine::PostgreSql && (old.kind == Kind::Stamp || old.kind == Kind::Time))
    return "abs(extract(epoch FROM (" + column + " - ?))) < 0.001";
  return column + " = ?";
}

std::string InsertDefaults(Engine engine, const std::string& table) {
  return engine == Engine::MariaDb ? "INSERT INTO " + table + " () VALUES ()"
                                   : "INSERT INTO " + table + " DEFAULT VALUES";
}

}  // namespace tessera::qtsql
