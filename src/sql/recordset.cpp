#include "sql/recordset.h"

#include <algorithm>

#include "sql/criteria.h"
#include "sql/sql_error.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::sql {

namespace {

constexpr std::size_t kRowsOfABreath = 256;

[[noreturn]] void FailNoRecord() {
  throw SqlError("Não há registro corrente: o ponteiro está em BOF ou EOF, ou o registro foi excluído."_w);
}

}  // namespace

Recordset::Recordset(SqlConnection& connection, const std::string& query, const RecordsetOptions& options,
                     const std::function<void()>& breath)
    : connection_(connection), options_(options) {
  if (options.location == CursorLocation::Server && options.cursor == CursorType::ForwardOnly)
    stream_ = connection.Stream(query);
  const std::unique_ptr<RowReader> reader = IsStream() ? nullptr : connection.Query({query, {}});
  columns_ = (IsStream() ? *stream_ : *reader).Columns();
  for (const SqlColumn& column : columns_) names_.push_back(Upper(FromUtf8Lossy(column.name)));
  if (IsStream()) {
    StepStream();
    return;
  }
  ReadRows(*reader, breath);
  MoveFirst();
}

void Recordset::ReadRows(RowReader& reader, const std::function<void()>& breath) {
  SqlRow row;
  for (std::size_t count = 1; reader.Next(row); ++count) {
    if (IsBatch()) row.resize(columns_.size() + 1);
    rows_.Append(row);
    if (count % kRowsOfABreath == 0) breath();
  }
}

void Recordset::StepStream() {
  place_ = stream_->Next(streamed_) ? Place::Row : Place::Eof;
}

bool Recordset::Eof() const {
  if (edit_ && edit_->isNew) return false;
  return place_ == Place::Eof || (place_ == Place::Bof && rows_.size() == 0);
}

bool Recordset::Bof() const {
  if (edit_ && edit_->isNew) return false;
  return place_ == Place::Bof || (place_ == Place::Eof && !IsStream() && rows_.size() == 0);
}

void Recordset::StandAt(std::size_t row) {
  place_ = Place::Row;
  row_ = row;
}

void Recordset::MoveFirst() {
  if (IsStream()) throw SqlError("SOMENTEAVANCAR no servidor não volta ao primeiro registro."_w);
  WriteEdit();
  place_ = Place::Bof;
  if (rows_.size() > 0) StandAt(0);
}

void Recordset::MoveLast() {
  if (IsStream()) {
    throw SqlError("SOMENTEAVANCAR no servidor não vai ao último registro."_w);
  }
  WriteEdit();
  place_ = Place::Eof;
  if (rows_.size() > 0) StandAt(rows_.size() - 1);
}

void Recordset::MoveNext() {
  WriteEdit();
  if (place_ == Place::Eof || (!IsStream() && Eof())) FailNoRecord();
  if (IsStream()) {
    StepStream();
    return;
  }
  const std::size_t next = place_ == Place::Bof ? 0 : place_ == Place::Gap ? row_ : row_ + 1;
  if (next < rows_.size()) {
    StandAt(next);
  } else {
    place_ = Place::Eof;
  }
}

void Recordset::MovePrevious() {
  if (IsStream()) throw SqlError("SOMENTEAVANCAR no servidor não volta."_w);
  WriteEdit();
  if (Bof()) FailNoRecord();
  const std::size_t behind = place_ == Place::Eof ? rows_.size() : row_;
  if (behind > 0) {
    StandAt(behind - 1);
  } else {
    place_ = Place::Bof;
  }
}

void Recordset::Find(std::string_view text) {
  const Criteria criteria(text);
  const std::size_t column = ColumnOf(criteria.Column());
  WriteEdit();
  if (IsStream()) {
    while (place_ == Place::Row && !criteria.Fits(streamed_[column])) StepStream();
    return;
  }
  const std::size_t count = rows_.size();
  const std::size_t first = place_ == Place::Eof ? count : place_ == Place::Bof ? 0 : row_;
  for (std::size_t row = first; row < count; ++row) {
    if (!criteria.Fits(rows_.Read(row, column))) continue;
    StandAt(row);
    return;
  }
  place_ = Place::Eof;
}

void Recordset::RequireWritable() const {
  if (IsStream() || options_.lock == LockType::ReadOnly || options_.lock == LockType::None)
    throw SqlError("A tabela foi aberta somente para leitura."_w);
}

void Recordset::RequireRecord() const {
  if (place_ != Place::Row) FailNoRecord();
}

std::size_t Recordset::ColumnOf(std::string_view name) const {
  const auto found = std::find(names_.begin(), names_.end(), Upper(Trim(name)));
  if (found == names_.end()) throw SqlError(std::string("Campo não encontrado: "_w).append(name));
  return static_cast<std::size_t>(found - names_.begin());
}

SqlRow Recordset::CurrentRow() const {
  RequireRecord();
  SqlRow row = rows_.ReadRow(row_);
  return row;
}

void Recordset::AddNew() {
  RequireWritable();
  if (!writer_) writer_.emplace(connection_, columns_);
  writer_->RequireTable();
  WriteEdit();
  edit_ = Edit{.isNew = true, .changes = Changes(columns_.size())};
}

SqlValue Recordset::Field(std::string_view name) const {
  const std::size_t column = ColumnOf(name);
  if (edit_ && edit_->changes[column]) return *edit_->changes[column];
  if (edit_ && edit_->isNew) return {};
  RequireRecord();
  return IsStream() ? streamed_[column] : rows_.Read(row_, column);
}

void Recordset::SetField(std::string_view name, const Value& value) {
  const std::size_t column = ColumnOf(name);
  RequireWritable();
  if (!writer_) writer_.emplace(connection_, columns_);
  writer_->RequireColumn(column);
  if (!edit_) RequireRecord();
  SqlValue stored = ColumnValue(value, columns_[column].kind, name);
  if (!edit_) edit_ = Edit{.isNew = false, .changes = Changes(columns_.size())};
  edit_->changes[column] = std::move(stored);
}

void Recordset::Update() {
  WriteEdit();
}

void Recordset::WriteEdit() {
  if (!edit_) return;
  if (edit_->isNew) {
    rows_.Append(WriteNew(edit_->changes));
    StandAt(rows_.size() - 1);
  } else {
    const SqlRow old = CurrentRow();
    // What was written with the value that it has is no change.
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (edit_->changes[i] == old[i]) edit_->changes[i].reset();
    }
    rows_.Replace(row_, WriteChanged(old, edit_->changes));
  }
  edit_.reset();
}

SqlRow Recordset::WriteNew(const Changes& changes) {
  if (!IsBatch()) return writer_->Insert(changes);
  SqlRow row(columns_.size() + 1);
  for (std::size_t i = 0; i < columns_.size(); ++i) row[i] = changes[i].value_or(SqlValue());
  row.back() = SqlValue::Of(Kind::Integer, static_cast<std::int64_t>(batch_.size()));
  batch_.push_back({BatchKind::Insert, {}, changes});
  return row;
}

SqlRow Recordset::WriteChanged(const SqlRow& old, const Changes& changes) {
  if (!IsBatch()) return writer_->Update(old, changes);
  SqlRow row = old;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (changes[i]) row[i] = *changes[i];
  }
  if (old.back().kind == Kind::Null) {
    batch_.push_back({BatchKind::Update, old, changes});
    return row;
  }
  Changes& inserted = batch_[static_cast<std::size_t>(old.back().integer)].changes;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (changes[i]) inserted[i] = changes[i];
  }
  return row;
}

void Recordset::Delete() {
  RequireWritable();
  if (edit_ && edit_->isNew) {
    edit_.reset();
    return;
  }
  if (!writer_) writer_.emplace(connection_, columns_);
  writer_->RequireTable();
  edit_.reset();
  const SqlRow old = CurrentRow();
  if (!IsBatch()) {
    writer_->Delete(old);
  } else if (old.back().kind == Kind::Null) {
    batch_.push_back({BatchKind::Delete, old, {}});
  } else {
    batch_[static_cast<std::size_t>(old.back().integer)].kind = BatchKind::Nothing;
  }
  rows_.Erase(row_);
  place_ = Place::Gap;
}

std::int64_t Recordset::RecordCount() const {
  return IsStream() ? kUncounted : static_cast<std::int64_t>(rows_.size());
}

void Recordset::Close() {
  edit_.reset();
  stream_.reset();
  if (batch_.empty()) return;
  const std::vector<BatchChange> batch = std::move(batch_);
  connection_.Begin();
  try {
    for (const BatchChange& change : batch) {
      if (change.kind == BatchKind::Insert) writer_->Insert(change.changes);
      if (change.kind == BatchKind::Update) writer_->Update(change.old, change.changes);
      if (change.kind == BatchKind::Delete) writer_->Delete(change.old);
    }
    connection_.Commit();
  } catch (const SqlError&) {
    connection_.Rollback();
    throw;
  }
}

}  // namespace tessera::sql
