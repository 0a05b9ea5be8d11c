// `tessera bd export`: the way out of a record file, to a text of fields or to a SQLite file.
#include <sqlite3.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <iostream>
#include <memory>

#include "platform/failure.h"
#include "text/code_page.h"
#include "tool/bd_file.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"
#include "values/variable_store.h"

namespace tessera {

namespace {

constexpr std::string_view kStandardOutput = "-";

// Calls `use` with each live record; the number of damaged ones, whose readable fields are used all the same.
std::int32_t ForEachLive(const BdFile& bd, const std::function<void(const TsaRecord&)>& use) {
  std::int32_t damaged = 0;
  for (std::int32_t number = 0; number < bd.header.count; ++number) {
    const TsaRecord record = ReadTsaRecord(*bd.file, bd.header, number);
    if (record.state == TsaState::Deleted) continue;
    damaged += record.state == TsaState::Damaged;
    use(record);
  }
  return damaged;
}

// A field of a text of fields (RFC 4180, with ";" between the fields since the decimal mark is ",").
std::string CsvField(const std::string& utf8) {
  if (utf8.find_first_of(";\"\r\n") == std::string::npos) return utf8;
  std::string quoted = "\"";
  for (const char c : utf8) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

// Returns the number of damaged records.
std::int32_t WriteCsv(const BdFile& bd, std::ostream& out) {
  const auto line = [&](const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) out << (i == 0 ? "" : ";") << CsvField(fields[i]);
    out << "\r\n";
  };
  std::vector<std::string> fields;
  for (const TsaField& field : bd.header.fields) fields.push_back(ToUtf8(field.name));
  line(fields);
  return ForEachLive(bd, [&](const TsaRecord& record) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      fields[i] = record.values[i] ? ToUtf8(record.values[i]->ToText()) : "";
    }
    line(fields);
  });
}

// What the standard output refuses is told when the tool ends.
std::variant<std::int32_t, std::string> ExportCsv(const BdFile& bd, const std::string& path) {
  if (path == kStandardOutput) return WriteCsv(bd, std::cout);
  std::ofstream out(path, std::ios::binary);
  const std::int32_t damaged = WriteCsv(bd, out);
  out.close();
  if (!out) return path + ": não pode ser gravado";
  return damaged;
}

class SqliteOutput {
 public:
  explicit SqliteOutput(const std::string& path) {
    sqlite3* opened = nullptr;
    status_ = sqlite3_open(path.c_str(), &opened);
    database_.reset(opened);
  }

  void Execute(const std::string& sql) {
    if (status_ == SQLITE_OK) status_ = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  }

  // Inserts all live records of the file by one statement.
  std::int32_t Insert(const BdFile& bd, const std::string& sql) {
    sqlite3_stmt* prepared = nullptr;
    if (status_ == SQLITE_OK)
      status_ = sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, sqlite3_finalize);
    return ForEachLive(bd, [&](const TsaRecord& record) {
      if (status_ != SQLITE_OK) return;
      for (std::size_t i = 0; i < record.values.size(); ++i) {
        Bind(statement.get(), static_cast<int>(i + 1), record.values[i]);
      }
      if (sqlite3_step(statement.get()) != SQLITE_DONE) status_ = sqlite3_errcode(database_.get());
      sqlite3_reset(statement.get());
    });
  }

  bool failed() const { return status_ != SQLITE_OK; }
  std::string message() const { return sqlite3_errmsg(database_.get()); }

 private:
  static void Bind(sqlite3_stmt* statement, int column, const std::optional<Value>& value) {
    if (!value) {
      sqlite3_bind_null(statement, column);
    } else if (const auto* integer = value->AsInteger()) {
      sqlite3_bind_int(statement, column, *integer);
    } else if (const auto* number = value->AsDouble()) {
      sqlite3_bind_double(statement, column, *number);
    } else {
      const std::string text = ToUtf8(value->ToText());
      sqlite3_bind_text(statement, column, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
  }

  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database_{nullptr, sqlite3_close};
  int status_ = SQLITE_OK;
};

std::string SqlName(const std::string& utf8) {
  std::string quoted = "\"";
  for (const char c : utf8) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

std::string_view SqlType(std::string_view type) {
  if (type == kTypeString) return "TEXT";
  return type == kTypeDecimal ? "REAL" : "INTEGER";
}

std::variant<std::int32_t, std::string> ExportSqlite(const BdFile& bd, const std::string& path) {
  const std::string table = SqlName(bd.header.name.empty() ? "Registros" : ToUtf8(bd.header.name));
  std::string columns;
  std::string places;
  for (const TsaField& field : bd.header.fields) {
    const std::string_view comma = columns.empty() ? "" : ", ";
    columns.append(comma).append(SqlName(ToUtf8(field.name))).append(" ").append(SqlType(field.type));
    places.append(comma).append("?");
  }
  SqliteOutput output(path);
  output.Execute("BEGIN");
  output.Execute("CREATE TABLE " + table + " (" + columns + ")");
  const std::int32_t damaged = output.Insert(bd, "INSERT INTO " + table + " VALUES (" + places + ")");
  output.Execute("COMMIT");
  if (output.failed()) return path + ": o SQLite recusou: " + output.message();
  return damaged;
}

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

}  // namespace

int BdExportSubcommand(const BdExportCall& call) {
  if (call.csv.empty() == call.sqlite.empty()) return Refuse("diga uma saída: --csv SAÍDA ou --sqlite SAÍDA");
  const std::string& path = call.csv.empty() ? call.sqlite : call.csv;
  if (call.sqlite == kStandardOutput)
    return Refuse("um banco SQLite não vai à saída padrão; dê o nome de um arquivo");
  const auto opened = OpenBdFile(call.file);
  if (const auto* message = std::get_if<std::string>(&opened)) return Refuse(*message);
  const BdFile& bd = std::get<BdFile>(opened);
  if (ToUtf8(bd.header.password) != call.password) {
    return Refuse(call.file + ": o banco de dados pede senha; dê a senha certa com --senha");
  }
  if (path != kStandardOutput && access(path.c_str(), F_OK) == 0)
    return Refuse(path + ": já existe; apague o arquivo ou escolha outro nome");
  std::variant<std::int32_t, std::string> result;
  if (const auto failure =
          Guard([&] { result = call.csv.empty() ? ExportSqlite(bd, path) : ExportCsv(bd, path); })) {
    result = call.file + ": não pode ser lido: " + ToUtf8(failure->description());
  }
  if (const auto* message = std::get_if<std::string>(&result)) return Refuse(*message);
  const std::int32_t damaged = std::get<std::int32_t>(result);
  if (damaged == 0) return kDone;
  PrintRemark(Counted(std::uint64_t(damaged), " registro tem campos que não se decodificam",
                      " registros têm campos que não se decodificam") +
              "; veja tessera bd check");
  return kRefused;
}

}  // namespace tessera
