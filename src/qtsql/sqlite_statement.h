// What the driver of database files keeps to itself, asked of the library below it: from which column of a
// table a result's column comes, what the declared types take, and the values as they are stored.
#pragma once

#include <QSqlQuery>
#include <map>
#include <string>

#include "sql/provider.h"

struct sqlite3_stmt;

namespace tessera::qtsql {

// The statement below a running query; null where the query is another driver's.
sqlite3_stmt* StatementOf(const QSqlQuery& query);

// The column of a table behind a result's column `place`; empty for an expression.
std::string OriginOf(sqlite3_stmt* statement, int place);

// The kind of each column of a table, by the affinity rules of SQLite ("Datatypes In SQLite", 3.1). A column
// declared as a truth value takes truth words too.
std::map<std::string, sql::ColumnKind> KindsOf(const QSqlDatabase& database, const std::string& table);

// FAST: steps on by itself, since the driver makes a variant of each value first. False behind the last row;
// an `SqlError` where the file can't be read.
bool Step(sqlite3_stmt* statement);
// The values of the row on which the statement stands.
void ReadRow(sqlite3_stmt* statement, sql::SqlRow& row);

}  // namespace tessera::qtsql
