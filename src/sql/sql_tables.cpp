#include "sql/sql_tables.h"

#include <algorithm>
#include <chrono>

#include "sql/sql_error.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::sql {

namespace {

// An unknown word sets nothing: the cursor then goes forward alone, and nothing may be written.
CursorType CursorOf(std::string_view word) {
  if (word == "DEFINECHAVE") return CursorType::Keyset;
  if (word == "DINAMICO") return CursorType::Dynamic;
  if (word == "ESTATICO") return CursorType::Static;
  return CursorType::ForwardOnly;
}

LockType LockOf(std::string_view word) {
  if (word == "SOMENTELEITURA") return LockType::ReadOnly;
  if (word == "PESSIMISTA") return LockType::Pessimistic;
  if (word == "OTIMISTA") return LockType::Optimistic;
  if (word == "OTIMISTAEMLOTE") return LockType::BatchOptimistic;
  return LockType::None;
}

// OPEN: while a long query is read the window shows what was drawn, though no event runs.
std::function<void()> Breath(EventDispatch& events) {
  static constexpr std::chrono::milliseconds kBlink{50};
  return [&events, last = std::chrono::steady_clock::now()]() mutable {
    const auto now = std::chrono::steady_clock::now();
    if (now - last < kBlink) return;
    events.ShowDrawn();
    last = std::chrono::steady_clock::now();
  };
}

}  // namespace

void SqlTables::AbreBDSQL(std::string_view name, std::string_view connectionText,
                          std::string_view locationWord) {
  if (SqlDatabaseCount >= kSlots) {
    ShowCritical(run_, "AbreBDSQL: Não pode abrir mais de 10 arquivos de banco de dados!"_w);
    return;
  }
  SqlDatabase& slot = SqlDatabases[SqlDatabaseCount];
  ConnectionTarget target = ReadConnectionText(connectionText);
  if (target.engine == Engine::Sqlite && target.path != ":memory:")
    target.path = run_.paths.SystemPath(target.path);
  slot.connection = provider_().Open(target);
  slot.name = Upper(name);
  slot.location = Upper(locationWord) == "USESERVIDOR" ? CursorLocation::Server : CursorLocation::Client;
  ++SqlDatabaseCount;
}

SqlDatabase* SqlTables::FindDatabase(std::string_view name) {
  const std::string upper = Upper(name);
  const auto found = std::find_if(SqlDatabases.begin(), SqlDatabases.end(), [&](const SqlDatabase& slot) {
    return slot.connection && slot.name == upper;
  });
  return found == SqlDatabases.end() ? nullptr : &*found;
}

// OPEN: its tables go with it, batches that were not closed included.
void SqlTables::FechaBDSQL(std::string_view name) {
  if (SqlDatabase* slot = FindDatabase(name)) *slot = SqlDatabase();
}

void SqlTables::ExecuteSQL(std::string_view name, std::string_view text) {
  SqlDatabase* slot = FindDatabase(name);
  if (slot == nullptr) {
    // KEPT: the message of another operation stands here too (programs/sql_boxes.tsc).
    ShowCritical(run_, "CriaTabelaSQL: Nome do banco de dados não encontrado!"_w);
    return;
  }
  slot->connection->Execute(ToUtf8(text));
}

void SqlTables::CriaTabelaSQL(std::string_view database, std::string_view table, std::string_view query,
                              std::string_view cursorWord, std::string_view lockWord) {
  SqlDatabase* slot = FindDatabase(database);
  if (slot == nullptr) {
    ShowCritical(run_, "CriaTabelaSQL: Nome do banco de dados não encontrado!"_w);
    return;
  }
  const auto row = std::find_if(slot->tables.begin(), slot->tables.end(),
                                [](const SqlTable& free) { return free.name.empty(); });
  if (row == slot->tables.end()) {
    ShowCritical(run_,
                 "CriaTabelaSQL: Mais de 10 tabelas abertas ao mesmo tempo para um mesmo Banco de Dados!\r"
                 "Utilize o comando FechaTabSQL para liberar espaço!"_w);
    return;
  }
  const RecordsetOptions options{CursorOf(Upper(cursorWord)), LockOf(Upper(lockWord)), slot->location};
  row->recordset =
      std::make_unique<Recordset>(*slot->connection, ToUtf8(query), options, Breath(run_.host.events));
  row->name = Upper(table);
  SetStatus(*row, row->recordset->Eof() ? kStatusEof : kStatusOk);
}

SqlTable* SqlTables::FindSqlTable(std::string_view database, std::string_view table) {
  SqlDatabase* slot = FindDatabase(database);
  if (slot == nullptr) {
    ShowCritical(run_, std::string("Nome do banco de dados não encontrado: "_w).append(database));
    return nullptr;
  }
  const std::string upper = Upper(table);
  const auto row = std::find_if(slot->tables.begin(), slot->tables.end(),
                                [&](const SqlTable& open) { return !upper.empty() && open.name == upper; });
  if (row != slot->tables.end()) return &*row;
  ShowCritical(run_, std::string("Nome da tabela não encontrada: "_w).append(table));
  return nullptr;
}

void SqlTables::FechaTabSQL(std::string_view database, std::string_view table) {
  SqlTable* row = FindSqlTable(database, table);
  if (row == nullptr) return;
  row->name.clear();
  const std::unique_ptr<Recordset> closing = std::move(row->recordset);
  closing->Close();
}

void SqlTables::SetStatus(SqlTable& table, std::string_view status) {
  table.status = status;
  run_.variables.VarWrite("PonteiroSQL", status, true);
}

void SqlTables::CloseAllSql() {
  for (SqlDatabase& slot : SqlDatabases) slot = SqlDatabase();
}

}  // namespace tessera::sql
