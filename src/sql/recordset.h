// A recordset: the rows of a query, the place in them, and the record that is being edited. By default it is
// a copy that can be walked both ways; over a stream it goes forward alone and can't be written. No driver
// and no display is known here. Every operation may throw `SqlError`; one that does leaves place and edit as
// they were.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sql/provider.h"
#include "sql/record_writer.h"
#include "sql/row_table.h"
#include "values/value.h"

namespace tessera::sql {

enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
// `None` is what an unknown word leaves: it refuses writing as well.
enum class LockType { None = 0, ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class CursorLocation { Server = 2, Client = 3 };

struct RecordsetOptions {
  CursorType cursor = CursorType::Dynamic;
  LockType lock = LockType::Optimistic;
  CursorLocation location = CursorLocation::Client;
};

class Recordset {
 public:
  // Runs the query and stands on its first record. `breath` is called now and then while rows are read.
  // `connection` outlives the recordset.
  Recordset(SqlConnection& connection, const std::string& query, const RecordsetOptions& options,
            const std::function<void()>& breath);

  // An empty recordset is at both.
  bool Eof() const;
  bool Bof() const;

  // Each writes an open edit first.
  void MoveFirst();
  void MoveLast();
  void MoveNext();      // fails at EOF
  void MovePrevious();  // fails at BOF
  void AddNew();
  // Goes to the first record that fits, the current one included, or to EOF.
  void Find(std::string_view criteria);

  // Writes the open edit; no edit is no error.
  void Update();
  // Drops the open edit and removes the current record. The place stays where the record was.
  void Delete();

  // `kUncounted` for a stream.
  static constexpr std::int64_t kUncounted = -1;
  std::int64_t RecordCount() const;

  // A field by its name, blind to case.
  SqlValue Field(std::string_view name) const;
  // Opens an edit of the current record, or goes on with it.
  void SetField(std::string_view name, const Value& value);

  // Writes a batch, whole or not at all. An open edit is dropped.
  void Close();

 private:
  // `Gap` stands before row `row_`, where a record was removed.
  enum class Place { Row, Gap, Bof, Eof };

  // A new record, or new values of the current one.
  struct Edit {
    bool isNew = false;
    Changes changes;
  };

  enum class BatchKind { Insert, Update, Delete, Nothing };
  struct BatchChange {
    BatchKind kind;
    SqlRow old;
    Changes changes;
  };

  bool IsStream() const { return stream_ != nullptr; }
  bool IsBatch() const { return options_.lock == LockType::BatchOptimistic; }
  void ReadRows(RowReader& reader, const std::function<void()>& breath);
  void StepStream();
  void StandAt(std::size_t row);
  void RequireWritable() const;
  void RequireRecord() const;
  std::size_t ColumnOf(std::string_view name) const;
  SqlRow CurrentRow() const;
  void WriteEdit();
  SqlRow WriteNew(const Changes& changes);
  SqlRow WriteChanged(const SqlRow& old, const Changes& changes);

  SqlConnection& connection_;
  RecordsetOptions options_;
  std::vector<SqlColumn> columns_;
  std::vector<std::string> names_;  // of the columns, upper-cased program text
  std::unique_ptr<RowReader> stream_;
  SqlRow streamed_;
  std::optional<RecordWriter> writer_;
  // In a batch each row has one value more: its place in `batch_` while it is new there, else NULL.
  RowTable rows_;
  std::vector<BatchChange> batch_;
  Place place_ = Place::Bof;
  std::size_t row_ = 0;
  std::optional<Edit> edit_;
};

}  // namespace tessera::sql
