// A table of an SQLite file as rows.
#include <sqlite3.h>
#include <unistd.h>

#include <limits>

#include "text/code_page.h"
#include "tool/row_source.h"

namespace tessera {

namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Statement Prepare(sqlite3* database, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
  return {statement, sqlite3_finalize};
}

std::string TextAt(sqlite3_stmt* statement, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
  return bytes == nullptr ? std::string() : std::string(bytes, length);
}

// An integer beyond the language's is a number or, where digits would be lost, a text.
Value IntegerAt(sqlite3_stmt* statement, int column) {
  constexpr sqlite3_int64 kBeyondDigits = 1'000'000'000'000'000;
  const sqlite3_int64 number = sqlite3_column_int64(statement, column);
  if (number >= std::numeric_limits<std::int32_t>::min() &&
      number <= std::numeric_limits<std::int32_t>::max())
    return static_cast<std::int32_t>(number);
  if (number > -kBeyondDigits && number < kBeyondDigits) return static_cast<double>(number);
  return std::to_string(number);
}

class SqliteSource final : public RowSource {
 public:
  SqliteSource(Database database, Statement statement)
      : database_(std::move(database)), statement_(std::move(statement)) {
    for (int i = 0; i < sqlite3_column_count(statement_.get()); ++i)
      columns_.push_back(FromUtf8Lossy(sqlite3_column_name(statement_.get(), i)));
  }

  const std::vector<std::string>& Columns() const override { return columns_; }
  void Rewind() override { sqlite3_reset(statement_.get()); }
  bool Next(ImportedRow& row) override {
    const int status = sqlite3_step(statement_.get());
    if (status != SQLITE_ROW) {
      if (status != SQLITE_DONE) problem_ = sqlite3_errmsg(database_.get());
      return false;
    }
    row.clear();
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) row.push_back(CellAt(i));
    return true;
  }
  std::string Problem() const override { return problem_; }

 private:
  Value CellAt(int column) const {
    switch (sqlite3_column_type(statement_.get(), column)) {
      case SQLITE_INTEGER:
        return IntegerAt(statement_.get(), column);
      case SQLITE_FLOAT:
        return sqlite3_column_double(statement_.get(), column);
      case SQLITE_TEXT:
        return FromUtf8Lossy(TextAt(statement_.get(), column));
      case SQLITE_BLOB:
        return TextAt(statement_.get(), column);
      default:
        return {};
    }
  }

  Database database_;
  Statement statement_;
  std::vector<std::string> columns_;
  std::string problem_;
};

std::string QuotedName(const std::string& name) {
  std::string quoted = "\"";
  for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

}  // namespace

OpenedSource OpenSqlite(const std::string& path, const std::string& table) {
  if (access(path.c_str(), F_OK) != 0) return path + ": arquivo não encontrado";
  sqlite3* opened = nullptr;
  const int status = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  Database database(opened, sqlite3_close);
  const Statement names = Prepare(
      opened,
      "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name");
  if (status != SQLITE_OK || !names) return path + ": não é um banco de dados SQLite";
  std::vector<std::string> tables;
  while (sqlite3_step(names.get()) == SQLITE_ROW) tables.push_back(TextAt(names.get(), 0));
  std::string chosen = table;
  if (chosen.empty() && tables.size() == 1) chosen = tables.front();
  if (chosen.empty()) {
    std::string list;
    for (const std::string& name : tables) list += (list.empty() ? "" : ", ") + name;
    return path + ": diga qual tabela com --table: " + list;
  }
  Statement rows = Prepare(opened, "SELECT * FROM " + QuotedName(chosen));
  if (!rows) return path + ": não tem a tabela " + chosen;
  return std::make_unique<SqliteSource>(std::move(database), std::move(rows));
}

}  // namespace tessera
