// Moving, editing, finding and counting, over a connection that is no database.
#include "sql/recordset.h"

#include <gtest/gtest.h>

#include "sql/fake_connection.h"
#include "text/literal.h"

namespace tessera::test {

namespace {

using sql::CursorLocation;
using sql::CursorType;
using sql::LockType;
using sql::Recordset;
using sql::SqlError;

class RecordsetTest : public testing::Test {
 protected:
  Recordset Open(std::vector<SqlRow> rows, sql::RecordsetOptions options = {}) {
    connection_.rows = std::move(rows);
    return Recordset(connection_, "SELECT * FROM t", options, [this] { ++breaths_; });
  }
  static std::vector<SqlRow> Names(std::initializer_list<const char*> names) {
    std::vector<SqlRow> rows;
    for (const char* name : names)
      rows.push_back({Integer(static_cast<std::int64_t>(rows.size()) + 1), Text(name)});
    return rows;
  }
  static std::string At(const Recordset& set) {
    return std::string(set.Bof() ? "B" : "") + (set.Eof() ? "E" : "") +
           (set.Bof() || set.Eof() ? "" : FieldValue(set.Field("NOME")).ToText());
  }

  FakeConnection connection_;
  int breaths_ = 0;
};

TEST_F(RecordsetTest, WalksBothWaysAndFailsBeyondTheEnds) {
  Recordset set = Open(Names({"a", "b"}));
  EXPECT_EQ(At(set), "a");
  set.MoveNext();
  set.MoveNext();
  EXPECT_EQ(At(set), "E");
  EXPECT_THROW(set.MoveNext(), SqlError);
  EXPECT_THROW(set.Field("nome"), SqlError);
  set.MovePrevious();
  EXPECT_EQ(At(set), "b");
  set.MoveFirst();
  set.MovePrevious();
  EXPECT_EQ(At(set), "B");
  EXPECT_THROW(set.MovePrevious(), SqlError);
  EXPECT_EQ(At(set), "B");
  set.MoveNext();
  EXPECT_EQ(At(set), "a");
}

TEST_F(RecordsetTest, AnEmptyOneIsAtBothEndsAndTakesItsFirstRecord) {
  Recordset set = Open({});
  EXPECT_EQ(At(set), "BE");
  set.MoveFirst();
  set.MoveLast();
  EXPECT_THROW(set.MoveNext(), SqlError);
  EXPECT_THROW(set.MovePrevious(), SqlError);
  EXPECT_THROW(set.SetField("nome", Value("x"_w)), SqlError);
  set.AddNew();
  EXPECT_EQ(At(set), "");
  set.SetField("nome", Value("x"_w));
  set.Update();
  EXPECT_EQ(At(set), "x");
  EXPECT_EQ(set.Field("id"), Integer(100));
  EXPECT_EQ(set.RecordCount(), 1);
}

TEST_F(RecordsetTest, AnEditIsWrittenOnceByTheNextMoveWithItsOldValues) {
  Recordset set = Open(Names({"a", "b"}));
  set.SetField("nome", Value("x"_w));
  set.SetField("nome", Value("y"_w));
  EXPECT_EQ(At(set), "y");
  connection_.reread = {{Integer(1), Text("Y!")}};
  set.MoveNext();
  EXPECT_EQ(connection_.log, std::vector<std::string>{"UPDATE t SET nome = 'y' WHERE id = 1 AND nome = 'a'"});
  set.MovePrevious();
  EXPECT_EQ(At(set), "Y!");  // as the database has it
  set.SetField("nome", Value("Y!"_w));
  set.Update();
  set.Update();
  EXPECT_EQ(connection_.log.size(), 1u);
  set.MoveNext();
  set.SetField("nome", Value("z"_w));
  set.MovePrevious();
  EXPECT_EQ(connection_.log.back(), "UPDATE t SET nome = 'z' WHERE id = 2 AND nome = 'b'");
}

TEST_F(RecordsetTest, ARefusedWriteLeavesPlaceAndEdit) {
  Recordset set = Open(Names({"a", "b"}));
  set.SetField("nome", Value("x"_w));
  connection_.touched = 0;
  EXPECT_THROW(set.MoveNext(), SqlError);
  EXPECT_EQ(At(set), "x");
  EXPECT_THROW(set.Find("id = 2"), SqlError);
  EXPECT_EQ(At(set), "x");
  connection_.touched = 1;
  set.MoveNext();
  EXPECT_EQ(At(set), "b");
  connection_.touched = 0;
  EXPECT_THROW(set.Delete(), SqlError);
  EXPECT_EQ(At(set), "b");
  EXPECT_EQ(set.RecordCount(), 2);
}

TEST_F(RecordsetTest, ARemovedRecordStaysThePlaceUntilTheNextMove) {
  Recordset set = Open(Names({"a", "b", "c"}));
  set.MoveNext();
  set.SetField("nome", Value("dropped"_w));
  set.Delete();
  EXPECT_EQ(connection_.log, std::vector<std::string>{"DELETE FROM t WHERE id = 2 AND nome = 'b'"});
  EXPECT_EQ(set.RecordCount(), 2);
  EXPECT_FALSE(set.Eof() || set.Bof());
  EXPECT_THROW(set.Field("nome"), SqlError);
  EXPECT_THROW(set.Delete(), SqlError);
  set.MoveNext();
  EXPECT_EQ(At(set), "c");
  set.Delete();
  set.MovePrevious();
  EXPECT_EQ(At(set), "a");
  for (const auto move : {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext}) {
    Recordset last = Open(Names({"a"}));
    last.Delete();
    EXPECT_FALSE(last.Eof() || last.Bof());
    (last.*move)();
    EXPECT_EQ(At(last), "BE");
  }
}

TEST_F(RecordsetTest, ANewRecordIsDroppedByRemoveAndWrittenByWhatGoesOn) {
  Recordset set = Open(Names({"a"}));
  set.AddNew();
  set.SetField("nome", Value("x"_w));
  set.Delete();
  EXPECT_EQ(At(set), "a");
  EXPECT_TRUE(connection_.log.empty());
  set.AddNew();
  set.AddNew();  // writes the one before, of defaults alone
  set.SetField("nome", Value("y"_w));
  set.MoveFirst();
  EXPECT_EQ(connection_.log,
            (std::vector<std::string>{"INSERT INTO t ()", "INSERT INTO t (nome) VALUES ('y')"}));
  EXPECT_EQ(set.RecordCount(), 3);
}

TEST_F(RecordsetTest, WithoutAKeyAllOldValuesNameTheRecord) {
  connection_.key.clear();
  Recordset set = Open({{SqlValue(), Text("a")}});
  set.SetField("nome", Value("b"_w));
  set.Update();
  EXPECT_EQ(connection_.log,
            std::vector<std::string>{"UPDATE t SET nome = 'b' WHERE id IS NULL AND nome = 'a'"});
  connection_.counted = {{Integer(2)}};
  set.SetField("nome", Value("c"_w));
  EXPECT_THROW(set.Update(), SqlError);
  EXPECT_EQ(connection_.log.size(), 1u);
  EXPECT_EQ(At(set), "c");
}

TEST_F(RecordsetTest, WritingIsRefusedWhereItCantBeDone) {
  for (const LockType lock : {LockType::None, LockType::ReadOnly}) {
    Recordset set = Open(Names({"a"}), {.lock = lock});
    EXPECT_THROW(set.SetField("nome", Value("b"_w)), SqlError);
    EXPECT_THROW(set.AddNew(), SqlError);
    EXPECT_THROW(set.Delete(), SqlError);
  }
  connection_.columns[1].baseTable.clear();
  Recordset computed = Open(Names({"a"}));
  EXPECT_THROW(computed.SetField("nome", Value("b"_w)), SqlError);
  computed.SetField("id", Value(std::int32_t{5}));
  connection_.columns[1].baseTable = "u";
  Recordset joined = Open(Names({"a"}));
  EXPECT_THROW(joined.SetField("id", Value(std::int32_t{5})), SqlError);
  EXPECT_THROW(joined.AddNew(), SqlError);
}

TEST_F(RecordsetTest, FindBeginsWithTheCurrentRecord) {
  Recordset set = Open(Names({"ana", "bia", "ana"}));
  set.Find("nome = 'ana'");
  EXPECT_EQ(set.Field("id"), Integer(1));
  set.MoveNext();
  set.Find("nome = 'ana'");
  EXPECT_EQ(set.Field("id"), Integer(3));
  EXPECT_THROW(set.Find("nome ~ 'ana'"), SqlError);
  EXPECT_THROW(set.Find("outro = 'ana'"), SqlError);
  EXPECT_EQ(set.Field("id"), Integer(3));
  set.Find("id = 9");
  EXPECT_EQ(At(set), "E");
  set.Find("id = 1");
  EXPECT_EQ(At(set), "E");
  set.MoveFirst();
  set.MovePrevious();
  set.Find("id = 1");
  EXPECT_EQ(At(set), "ana");
}

TEST_F(RecordsetTest, ABatchIsWrittenWholeWhenItIsClosed) {
  const sql::RecordsetOptions batch{.lock = LockType::BatchOptimistic};
  Recordset set = Open(Names({"a", "b"}), batch);
  set.SetField("nome", Value("x"_w));
  set.AddNew();
  set.SetField("nome", Value("new"_w));
  set.Update();
  EXPECT_EQ(At(set), "new");
  set.SetField("nome", Value("newer"_w));
  set.Update();
  set.AddNew();
  set.Update();
  set.Delete();
  set.MoveFirst();
  set.MoveNext();
  set.Delete();
  EXPECT_TRUE(connection_.log.empty());
  EXPECT_EQ(set.RecordCount(), 2);
  set.Close();
  EXPECT_EQ(connection_.log,
            (std::vector<std::string>{"BEGIN", "UPDATE t SET nome = 'x' WHERE id = 1 AND nome = 'a'",
                                      "INSERT INTO t (nome) VALUES ('newer')",
                                      "DELETE FROM t WHERE id = 2 AND nome = 'b'", "COMMIT"}));

  connection_.log.clear();
  Recordset failing = Open(Names({"a"}), batch);
  failing.SetField("nome", Value("x"_w));
  failing.Update();
  connection_.refuses = true;
  EXPECT_THROW(failing.Close(), SqlError);
  EXPECT_EQ(connection_.log, (std::vector<std::string>{"BEGIN", "ROLLBACK"}));
}

TEST_F(RecordsetTest, AStreamGoesForwardAlone) {
  Recordset set =
      Open(Names({"a", "b", "c"}), {.cursor = CursorType::ForwardOnly, .location = CursorLocation::Server});
  EXPECT_EQ(set.RecordCount(), Recordset::kUncounted);
  EXPECT_THROW(set.MovePrevious(), SqlError);
  EXPECT_THROW(set.MoveFirst(), SqlError);
  EXPECT_THROW(set.MoveLast(), SqlError);
  EXPECT_THROW(set.SetField("nome", Value("x"_w)), SqlError);
  EXPECT_EQ(At(set), "a");
  set.Find("nome = 'b'");
  EXPECT_EQ(At(set), "b");
  set.MoveNext();
  set.MoveNext();
  EXPECT_EQ(At(set), "E");
  EXPECT_THROW(set.MoveNext(), SqlError);
}

TEST_F(RecordsetTest, LongRowsAndManyComeBackAsTheyWere) {
  std::vector<SqlRow> rows;
  for (int i = 0; i < 3000; ++i)
    rows.push_back({Integer(i), Text(std::string(static_cast<std::size_t>(i % 7 == 0 ? i * 100 : 3), 'k'))});
  Recordset set = Open(rows);
  for (int i = 0; i < 3000; ++i, set.MoveNext()) {
    ASSERT_EQ(set.Field("id"), rows[static_cast<std::size_t>(i)][0]);
    ASSERT_EQ(set.Field("nome"), rows[static_cast<std::size_t>(i)][1]);
  }
  EXPECT_EQ(breaths_, 3000 / 256);
}

}  // namespace

}  // namespace tessera::test
