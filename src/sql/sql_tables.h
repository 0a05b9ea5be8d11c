// The databases that a program has open, and the tables of each: named connections and named recordsets. The
// words of the language that lead here are told in sql_commands.h.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "sql/provider.h"
#include "sql/recordset.h"
#include "values/run.h"

namespace tessera::sql {

inline constexpr std::string_view kStatusOk = "OK";
inline constexpr std::string_view kStatusEof = "EOF";
inline constexpr std::string_view kStatusBof = "BOF";

struct SqlTable {
  std::string name;  // in upper case; an empty name is a free row
  std::unique_ptr<Recordset> recordset;
  std::string status;
};

struct SqlDatabase {
  static constexpr std::size_t kTables = 10;

  std::string name;  // in upper case
  CursorLocation location = CursorLocation::Client;
  std::unique_ptr<SqlConnection> connection;
  std::array<SqlTable, kTables> tables;  // behind the connection, which they need to their end
};

class SqlTables {
 public:
  // `provider` gives whoever reaches databases, at the first connection; it may throw `SqlError`.
  SqlTables(Run& run, std::function<SqlProvider&()> provider) : run_(run), provider_(std::move(provider)) {}
  ~SqlTables() { CloseAllSql(); }
  SqlTables(const SqlTables&) = delete;
  SqlTables& operator=(const SqlTables&) = delete;

  // Names are blind to case. Each shows its box for a limit or a name that is missing, and may throw
  // `SqlError`.
  void AbreBDSQL(std::string_view name, std::string_view connectionText, std::string_view locationWord);
  void FechaBDSQL(std::string_view name);
  void ExecuteSQL(std::string_view name, std::string_view text);
  void CriaTabelaSQL(std::string_view database, std::string_view table, std::string_view query,
                     std::string_view cursorWord, std::string_view lockWord);
  void FechaTabSQL(std::string_view database, std::string_view table);

  // Null, behind its box, for a miss.
  SqlTable* FindSqlTable(std::string_view database, std::string_view table);

  // Sets the table's status and `PonteiroSQL`.
  void SetStatus(SqlTable& table, std::string_view status);

  // At the program's end: open edits and batches are dropped.
  void CloseAllSql();

 private:
  static constexpr std::size_t kSlots = 10;

  SqlDatabase* FindDatabase(std::string_view name);

  Run& run_;
  std::function<SqlProvider&()> provider_;
  std::array<SqlDatabase, kSlots> SqlDatabases;
  // The next free slot. It only grows: closing a database doesn't give its slot back.
  std::size_t SqlDatabaseCount = 0;
};

}  // namespace tessera::sql
