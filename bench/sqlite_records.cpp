#include "sqlite_records.h"

#include <sqlite3.h>

#include <chrono>
#include <functional>

namespace tessera::bench {

namespace {

constexpr int kRecords = 100000;

class Statement {
 public:
  Statement(sqlite3* database, const char* sql) {
    sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr);
  }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Bind(int column, const std::string& text) {
    sqlite3_bind_text(statement_, column, text.c_str(), -1, SQLITE_TRANSIENT);
  }
  void Bind(int column, int number) { sqlite3_bind_int(statement_, column, number); }
  // Runs to the end, reading every column of every row as the record commands do.
  void Run() {
    while (sqlite3_step(statement_) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(statement_); ++i) sqlite3_column_text(statement_, i);
    }
    sqlite3_reset(statement_);
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

SqliteTimes MeasureSqlite(const std::string& file) {
  sqlite3* database = nullptr;
  sqlite3_open(file.c_str(), &database);
  Statement(database, "PRAGMA synchronous=OFF").Run();
  Statement(database, "CREATE TABLE gente (id INTEGER PRIMARY KEY, nome TEXT, idade INT, peso REAL)").Run();
  SqliteTimes times{};
  times.insert = Milliseconds([&] {
    Statement insert(database, "INSERT INTO gente (nome, idade, peso) VALUES (?, ?, 0.0)");
    for (int i = 0; i < kRecords; ++i) {
      insert.Bind(1, "Pessoa " + std::to_string(i));
      insert.Bind(2, i);
      insert.Run();
    }
  });
  times.read = Milliseconds([&] {
    Statement read(database, "SELECT * FROM gente WHERE id = ?");
    for (int i = 1; i <= kRecords; ++i) {
      read.Bind(1, i);
      read.Run();
    }
  });
  times.order =
      Milliseconds([&] { Statement(database, "CREATE INDEX nomes ON gente (nome COLLATE NOCASE)").Run(); });
  times.find = Milliseconds([&] {
    Statement find(database, "SELECT id FROM gente WHERE nome = ? COLLATE NOCASE");
    for (int i = 0; i < kRecords; ++i) {
      find.Bind(1, "Pessoa 500");
      find.Run();
    }
  });
  Statement(database, "DROP INDEX nomes").Run();
  times.update = Milliseconds([&] {
    Statement update(database, "UPDATE gente SET nome = ?, idade = ?, peso = 0.0 WHERE id = ?");
    for (int i = 1; i <= kRecords; ++i) {
      update.Bind(1, "Outra pessoa");
      update.Bind(2, i);
      update.Bind(3, i);
      update.Run();
    }
  });
  sqlite3_close(database);
  return times;
}

}  // namespace tessera::bench
