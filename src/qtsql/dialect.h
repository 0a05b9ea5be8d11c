// What the databases say differently.
#pragma once

#include <QSqlDatabase>
#include <string>

#include "sql/provider.h"

namespace tessera::qtsql {

// The driver's name, and the package that brings it.
struct Driver {
  const char* name;
  const char* package;
};

Driver DriverOf(sql::Engine engine);

// Fills in where the connection leads. `target.path` of a database file is the system's own.
void Aim(QSqlDatabase& database, const sql::ConnectionTarget& target);

// A condition with one "?" that holds where `column` has exactly the value `old`.
std::string SameValue(sql::Engine engine, const std::string& column, const sql::SqlValue& old);

// An insert that names no column.
std::string InsertDefaults(sql::Engine engine, const std::string& table);

}  // namespace tessera::qtsql
