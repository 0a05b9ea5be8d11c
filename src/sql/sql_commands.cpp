#include "sql/sql_commands.h"

#include "platform/failure.h"
#include "sql/sql_error.h"
#include "sql/sql_path.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "values/parens.h"

namespace tessera::sql {

namespace {

// The word for "MOVEPRIMEIRO" and its like, and what it does to the recordset.
struct MoveWord {
  std::string_view word;
  void (*act)(Recordset& recordset);
};

constexpr MoveWord kMoveWords[] = {
    {"MOVEPRIMEIRO", [](Recordset& recordset) { recordset.MoveFirst(); }},
    {"MOVEULTIMO", [](Recordset& recordset) { recordset.MoveLast(); }},
    {"MOVEPROXIMO", [](Recordset& recordset) { recordset.MoveNext(); }},
    {"MOVEANTERIOR", [](Recordset& recordset) { recordset.MovePrevious(); }},
    {"EDITA", [](Recordset&) {}},
    {"REMOVE", [](Recordset& recordset) { recordset.Delete(); }},
    {"ATUALIZA", [](Recordset& recordset) { recordset.Update(); }},
    {"ADICIONA", [](Recordset& recordset) { recordset.AddNew(); }},
};

[[noreturn]] void FailUnknownWord(std::string_view word) {
  throw SqlError(std::string("Comando desconhecido: "_w).append(word));
}

// A value as a function's answer stands in an expression: a text in quotes, a number bare, with ".".
Value InExpression(const Value& value) {
  if (value.IsEmpty() || value.IsText()) return Quote(value.ToText());
  return Replace(value.ToText(), ',', '.');
}

}  // namespace

// One use of the command.
struct SqlCommands::Call {
  Run& run;
  SqlPath path;
  std::vector<std::string_view> arguments;

  const std::string& Piece(std::size_t place) const { return path.pieces[place]; }
  std::string Word() const { return Upper(path.pieces.back()); }
  // The text of an argument; empty where it is missing.
  std::string Text(std::size_t place) const {
    if (place >= arguments.size()) return {};
    if (const auto literal = WholeLiteral(arguments[place])) return std::string(*literal);
    return EvalText(run, arguments[place]).ToText();
  }
  // What is written to a field.
  Value Written() const {
    if (const auto literal = WholeLiteral(path.rest)) return *literal;
    return EvalNumber(run, path.rest);
  }
};

SqlCommands::SqlCommands(CommandTable& table, Run& run, std::function<SqlProvider&()> provider)
    : run_(run), tables_(run, std::move(provider)) {
  constexpr MemberRow<SqlCommands> kRows[] = {{"SQL", &SqlCommands::SQL}};
  Bind(table, kRows, *this);
  run.doors.SqlReadField = [this](std::string_view base, std::string_view name, std::string_view field) {
    return SqlReadField(base, name, field);
  };
}

bool SqlCommands::Guarded(const std::function<void()>& body) {
  std::string text;
  try {
    const auto failure = Guard(body);
    if (!failure) return true;
    text = failure->description();
  } catch (const SqlError& error) {
    text = error.text();
  }
  ShowCritical(run_, SourcePositionText(run_).append("\r\rSQL Error ").append(text));
  return false;
}

Value SqlCommands::SQL(const WordCall& call) {
  const std::string text = StripParens(call.text);
  Value answer = Quote("");
  Guarded([&] {
    const SqlPath path = CutPath(text);
    answer = Do({run_, path, CutArguments(path.rest)});
  });
  return answer;
}

Value SqlCommands::Do(const Call& call) {
  if (call.path.pieces.size() == 3) return TableWord(call);
  if (call.path.pieces.size() != 2) FailUnknownWord(call.path.pieces.back());
  DatabaseWord(call);
  return Quote("");
}

void SqlCommands::DatabaseWord(const Call& call) {
  const std::string word = call.Word();
  if (word == "ABRE") {
    const std::string location = call.Text(1);
    tables_.AbreBDSQL(call.Piece(0), call.Text(0), location.empty() ? "USECLIENTE" : location);
  } else if (word == "FECHA") {
    tables_.FechaBDSQL(call.Piece(0));
  } else if (word == "EXECUTE") {
    tables_.ExecuteSQL(call.Piece(0), call.Text(0));
  } else {
    FailUnknownWord(call.Piece(1));
  }
}

Value SqlCommands::TableWord(const Call& call) {
  const std::string word = call.Word();
  if (word == "ABRE") {
    Open(call);
    return Quote("");
  }
  if (word == "FECHA") {
    tables_.FechaTabSQL(call.Piece(0), call.Piece(1));
    return Quote("");
  }
  SqlTable* table = tables_.FindSqlTable(call.Piece(0), call.Piece(1));
  if (table == nullptr) return Quote("");
  Recordset& recordset = *table->recordset;
  for (const MoveWord& move : kMoveWords) {
    if (word != move.word) continue;
    move.act(recordset);
    tables_.SetStatus(*table, kStatusOk);
    if (recordset.Eof()) tables_.SetStatus(*table, kStatusEof);
    // An empty recordset is at both, and "BOF" wins.
    if (recordset.Bof()) tables_.SetStatus(*table, kStatusBof);
    return Quote("");
  }
  if (word == "PROCURE") {
    recordset.Find(call.Text(0));
    tables_.SetStatus(*table, recordset.Eof() ? kStatusEof : kStatusOk);
    return Quote("");
  }
  if (word == "TOTALREGISTROS") return TotalRegistros(recordset);
  if (call.path.writes) {
    recordset.SetField(call.Piece(2), call.Written());
    return Quote("");
  }
  return InExpression(FieldOrStatus(*table, call.Piece(2)));
}

void SqlCommands::Open(const Call& call) {
  std::string cursor = call.Text(1);
  std::string lock = call.Text(2);
  if (!cursor.empty() && lock.empty()) {
    ShowCritical(run_, "Erro: Se informar o tipo do cursor, deve informar também o tipo do bloqueio!"_w);
    return;
  }
  if (cursor.empty()) {
    cursor = "DINAMICO";
    lock = "OTIMISTA";
  }
  tables_.CriaTabelaSQL(call.Piece(0), call.Piece(1), call.Text(0), cursor, lock);
}

Value SqlCommands::TotalRegistros(Recordset& recordset) {
  std::int64_t count = recordset.RecordCount();
  if (count == Recordset::kUncounted) return static_cast<std::int32_t>(count);
  recordset.MoveLast();
  if (!recordset.Eof()) count = recordset.RecordCount();
  recordset.MoveFirst();
  return static_cast<std::int32_t>(count);
}

Value SqlCommands::FieldOrStatus(SqlTable& table, std::string_view name) {
  if (EqualsIgnoringCase(name, "PONTEIRO")) return table.status;
  return FieldValue(table.recordset->Field(name));
}

std::optional<Value> SqlCommands::SqlReadField(std::string_view base, std::string_view name,
                                               std::string_view field) {
  std::optional<Value> value;
  Guarded([&] {
    SqlTable* table = tables_.FindSqlTable(Trim(base), Trim(name));
    if (table != nullptr) value = FieldOrStatus(*table, Trim(field));
  });
  return value;
}

}  // namespace tessera::sql
