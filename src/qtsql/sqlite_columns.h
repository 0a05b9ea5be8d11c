// What a database file's driver doesn't tell: from which column of a table a result's column comes, and what
// the declared types take.
#pragma once

#include <QSqlQuery>
#include <map>
#include <string>

#include "sql/provider.h"

namespace tessera::qtsql {

// The column of a table behind column `place` of a running query; empty for an expression.
std::string OriginOf(const QSqlQuery& query, int place);

// The kind of each column of a table, by the affinity rules of SQLite ("Datatypes In SQLite", 3.1). A column
// declared as a truth value takes truth words too.
std::map<std::string, sql::ColumnKind> KindsOf(const QSqlDatabase& database, const std::string& table);

}  // namespace tessera::qtsql
