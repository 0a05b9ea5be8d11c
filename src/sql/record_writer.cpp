#include "sql/record_writer.h"

#include <algorithm>

#include "sql/sql_error.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera::sql {

namespace {

// The one table of the columns that have one; empty where there are several, or none.
std::string SingleTable(const std::vector<SqlColumn>& columns) {
  std::string table;
  for (const SqlColumn& column : columns) {
    if (column.baseTable.empty() || column.baseTable == table) continue;
    if (!table.empty()) return {};
    table = column.baseTable;
  }
  return table;
}

}  // namespace

RecordWriter::RecordWriter(SqlConnection& connection, std::vector<SqlColumn> columns)
    : connection_(connection), columns_(std::move(columns)) {
  const std::string table = SingleTable(columns_);
  if (table.empty()) return;
  table_ = connection_.QuotedTable(table);
  const std::vector<std::string> names = connection_.KeyOf(table);
  if (names.size() == 1) automaticKey_ = names.front();
  for (const std::string& name : names) {
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const SqlColumn& column) {
      return !column.baseTable.empty() && column.baseName == name;
    });
    if (found == columns_.end()) {
      key_.clear();
      return;
    }
    key_.push_back(static_cast<std::size_t>(found - columns_.begin()));
  }
}

void RecordWriter::RequireTable() const {
  if (table_.empty()) throw SqlError("Somente leitura: os campos da consulta não vêm de uma única tabela."_w);
}

void RecordWriter::RequireColumn(std::size_t column) const {
  RequireTable();
  if (IsOfTable(column)) return;
  throw SqlError(std::string("Somente leitura: o campo '"_w)
                     .append(FromUtf8Lossy(columns_[column].name))
                     .append("' é calculado."_w));
}

void RecordWriter::AddCondition(std::string& text, std::vector<SqlValue>& values, std::size_t column,
                                const SqlValue& old) const {
  text += text.empty() ? " WHERE " : " AND ";
  if (old.kind == Kind::Null) {
    text += Quoted(column) + " IS NULL";
    return;
  }
  text += connection_.SameValue(Quoted(column), old);
  values.push_back(old);
}

std::string RecordWriter::Where(const SqlRow& old, const Changes& changes, OldValues which,
                                std::vector<SqlValue>& values) const {
  std::string text;
  for (const std::size_t column : key_) AddCondition(text, values, column, old[column]);
  const bool all = which == OldValues::All || key_.empty();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!IsOfTable(i) || std::find(key_.begin(), key_.end(), i) != key_.end()) continue;
    if (all || changes[i]) AddCondition(text, values, i, old[i]);
  }
  return text;
}

void RecordWriter::ChangeOne(const std::string& statement, std::vector<SqlValue> values,
                             const std::string& where, std::size_t whereValues) {
  // Without a key several records may look alike: none of them is touched then.
  if (key_.empty()) {
    SqlChange count{"SELECT COUNT(*) FROM " + table_ + where,
                    {values.end() - static_cast<std::ptrdiff_t>(whereValues), values.end()}};
    SqlRow row;
    if (connection_.Query(count)->Next(row) && row.front().integer > 1)
      throw SqlError("A tabela não tem chave, e mais de um registro tem esses valores."_w);
  }
  if (connection_.Change({statement + where, std::move(values)}) == 0)
    throw SqlError("O registro foi alterado ou excluído por outro usuário."_w);
}

SqlRow RecordWriter::Update(const SqlRow& old, const Changes& changes) {
  SqlRow now = old;
  std::vector<SqlValue> values;
  std::string text;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!changes[i]) continue;
    text += (text.empty() ? "UPDATE " + table_ + " SET " : ", ") + Quoted(i) + " = ?";
    values.push_back(*changes[i]);
    now[i] = *changes[i];
  }
  if (text.empty()) return now;
  const std::size_t setValues = values.size();
  const std::string where = Where(old, changes, OldValues::Changed, values);
  const std::size_t whereValues = values.size() - setValues;
  ChangeOne(text, std::move(values), where, whereValues);
  return Reread(std::move(now));
}

SqlRow RecordWriter::Insert(const Changes& changes) {
  SqlRow row(columns_.size());
  SqlChange change;
  std::string names;
  std::string places;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!changes[i]) continue;
    names += (names.empty() ? "" : ", ") + Quoted(i);
    places += places.empty() ? "?" : ", ?";
    change.values.push_back(*changes[i]);
    row[i] = *changes[i];
  }
  change.text = names.empty() ? connection_.InsertDefaults(table_)
                              : "INSERT INTO " + table_ + " (" + names + ") VALUES (" + places + ")";
  const SqlValue made = connection_.Insert(change, automaticKey_);
  if (key_.size() == 1 && row[key_.front()].kind == Kind::Null) row[key_.front()] = made;
  return Reread(std::move(row));
}

// OPEN: what another user has just changed is not removed unseen.
void RecordWriter::Delete(const SqlRow& old) {
  std::vector<SqlValue> values;
  const std::string where = Where(old, Changes(columns_.size()), OldValues::All, values);
  const std::size_t count = values.size();
  ChangeOne("DELETE FROM " + table_, std::move(values), where, count);
}

// OPEN: defaults, rounding and automatic keys are the database's own.
SqlRow RecordWriter::Reread(SqlRow row) const {
  if (key_.empty()) return row;
  std::string names;
  std::vector<std::size_t> read;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!IsOfTable(i)) continue;
    names += (names.empty() ? "" : ", ") + Quoted(i);
    read.push_back(i);
  }
  SqlChange query;
  std::string where;
  for (const std::size_t column : key_) AddCondition(where, query.values, column, row[column]);
  query.text = "SELECT " + names + " FROM " + table_ + where;
  SqlRow fields;
  if (!connection_.Query(query)->Next(fields)) return row;
  for (std::size_t i = 0; i < read.size(); ++i) row[read[i]] = std::move(fields[i]);
  return row;
}

}  // namespace tessera::sql
