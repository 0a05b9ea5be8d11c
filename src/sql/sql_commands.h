// The command word `SQL` with its dotted path: `base.word`, `base.table.word`, `base.table.field`.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "commands/command_table.h"
#include "sql/sql_tables.h"

namespace tessera::sql {

class SqlCommands {
 public:
  // Binds the command and fills the door `SqlReadField`.
  SqlCommands(CommandTable& table, Run& run, std::function<SqlProvider&()> provider);
  SqlCommands(const SqlCommands&) = delete;
  SqlCommands& operator=(const SqlCommands&) = delete;

 private:
  struct Call;

  Value SQL(const WordCall& call);
  Value Do(const Call& call);
  void DatabaseWord(const Call& call);
  Value TableWord(const Call& call);
  void Open(const Call& call);
  static Value TotalRegistros(Recordset& recordset);
  Value FieldOrStatus(SqlTable& table, std::string_view name);
  // Runs the body; an error of a database, or a failure, shows the box of `SQL`. False then.
  bool Guarded(const std::function<void()>& body);
  std::optional<Value> SqlReadField(std::string_view base, std::string_view table, std::string_view field);

  Run& run_;
  SqlTables tables_;
};

}  // namespace tessera::sql
