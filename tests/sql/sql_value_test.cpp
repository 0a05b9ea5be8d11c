// Values on both ways, connection texts, criteria.
#include "sql/sql_value.h"

#include <gtest/gtest.h>

#include "sql/connection_text.h"
#include "sql/criteria.h"
#include "sql/sql_error.h"
#include "text/literal.h"

namespace tessera::sql {

namespace {

TEST(SqlValues, AreReadAsTheLanguageShowsThem) {
  const struct {
    SqlValue value;
    const char* text;
    bool isText;
  } cases[] = {
      {SqlValue::Of(Kind::Integer, 2147483647), "2147483647", false},
      {SqlValue::Of(Kind::Integer, 999'999'999'999'999), "999999999999999", false},
      {SqlValue::Of(Kind::Integer, 1'000'000'000'000'000), "1000000000000000", true},
      {SqlValue::Of(2.5), "2,5", false},
      {SqlValue::Of(Kind::Decimal, "12.50"), "12,5", false},
      {SqlValue::Of(Kind::Decimal, "-0.000000000000001"), "-1E-15", false},
      {SqlValue::Of(Kind::Decimal, "123456789012345678.25"), "123456789012345678,25", true},
      {SqlValue::Of(Kind::Decimal, "1000000000000000"), "1000000000000000", true},
      {SqlValue::Of(Kind::Truth, 1), "VERDADEIRO", true},
      {SqlValue::Of(Kind::Truth, 0), "FALSO", true},
      {SqlValue::Of(Kind::Date, "2024-02-01"), "01/02/2024", true},
      {SqlValue::Of(Kind::Time, "13:05:06.250"), "13:05:06", true},
      {SqlValue::Of(Kind::Stamp, "2024-02-01T13:05:06.000"), "01/02/2024 13:05:06", true},
      {SqlValue::Of(Kind::Stamp, "2024-02-01T00:00:00.000"), "01/02/2024", true},
      {SqlValue::Of(Kind::Bytes, std::string("a\0b", 3)), nullptr, true},
  };
  for (const auto& row : cases) {
    const Value value = FieldValue(row.value);
    EXPECT_EQ(value.IsText(), row.isText) << row.text;
    EXPECT_EQ(value.ToText(), row.text == nullptr ? std::string("a\0b", 3) : row.text);
  }
  EXPECT_TRUE(FieldValue({}).IsEmpty());
  EXPECT_EQ(FieldValue(SqlValue::Of(Kind::Text, "ação λ")).ToText(), "ação ?"_w);
}

TEST(SqlValues, AreWrittenAsTheColumnTakesThem) {
  const struct {
    const char* text;
    ColumnKind kind;
    SqlValue stored;
  } cases[] = {
      {"", ColumnKind::Text, SqlValue::Of(Kind::Text, "")},
      {"", ColumnKind::Any, SqlValue::Of(Kind::Text, "")},
      {"", ColumnKind::Integer, {}},
      {"", ColumnKind::Date, {}},
      {"1,5", ColumnKind::Text, SqlValue::Of(Kind::Text, "1,5")},
      {"9223372036854775807", ColumnKind::Integer, SqlValue::Of(Kind::Integer, INT64_MAX)},
      {"1.234", ColumnKind::Integer, SqlValue::Of(Kind::Integer, 1234)},
      {"1.234,5", ColumnKind::Real, SqlValue::Of(1234.5)},
      {"1.234.567.890.123.456.789,25", ColumnKind::Decimal,
       SqlValue::Of(Kind::Decimal, "1234567890123456789.25")},
      {"12", ColumnKind::Numeric, SqlValue::Of(Kind::Integer, 12)},
      {"doze", ColumnKind::Numeric, SqlValue::Of(Kind::Text, "doze")},
      {"sim", ColumnKind::Truth, SqlValue::Of(Kind::Truth, 1)},
      {"-1", ColumnKind::Truth, SqlValue::Of(Kind::Truth, 1)},
      {"FALSO", ColumnKind::Truth, SqlValue::Of(Kind::Truth, 0)},
      {"1/2/24", ColumnKind::Date, SqlValue::Of(Kind::Date, "2024-02-01")},
      {"1/2/2024 13:05", ColumnKind::Stamp, SqlValue::Of(Kind::Stamp, "2024-02-01T13:05:00")},
      {"13:05", ColumnKind::Time, SqlValue::Of(Kind::Time, "13:05:00")},
  };
  for (const auto& row : cases)
    EXPECT_EQ(ColumnValue(Value(std::string(row.text)), row.kind, "c"), row.stored) << row.text;

  for (const auto kind : {ColumnKind::Integer, ColumnKind::Real, ColumnKind::Decimal, ColumnKind::Truth,
                          ColumnKind::Date, ColumnKind::Time, ColumnKind::Stamp})
    EXPECT_THROW(ColumnValue(Value("doze"_w), kind, "c"), SqlError) << static_cast<int>(kind);
  EXPECT_EQ(ColumnValue(Value(0.1), ColumnKind::Real, "c"), SqlValue::Of(0.1));
}

TEST(ConnectionText, LeadsToItsServer) {
  const auto engine = [](std::string_view text) { return ReadConnectionText(text).engine; };
  EXPECT_EQ(engine("dados\\loja.db"), Engine::Sqlite);
  EXPECT_EQ(engine(":memory:"), Engine::Sqlite);
  EXPECT_EQ(engine("driver=sqlite3 x;Database=a.db"), Engine::Sqlite);
  EXPECT_EQ(engine("Data Source=a.db"), Engine::Sqlite);
  EXPECT_EQ(engine("DSN=Loja;Database=a.db"), Engine::Odbc);
  EXPECT_EQ(engine("Driver={SQL Server};Server=x"), Engine::Odbc);
  EXPECT_EQ(engine("PROVIDER=PostgreSQL OLE;Server=x"), Engine::PostgreSql);
  EXPECT_EQ(engine("Driver={MySQL ODBC 8};Server=x"), Engine::MariaDb);
  EXPECT_EQ(ReadConnectionText("Database = 'a;b.db' ; x").path, "a;b.db");
  EXPECT_EQ(ReadConnectionText("Driver={PostgreSQL};Server=h").server, "h");
  const ConnectionTarget target =
      ReadConnectionText("driver=PostgreSQL;server=h;PORT=5;database=d;user id={u;x};Password=\"p=q\";");
  EXPECT_EQ(
      target.server + "|" + target.port + "|" + target.database + "|" + target.user + "|" + target.password,
      "h|5|d|u;x|p=q");
}

TEST(Criteria, CompareByTheKindOfTheField) {
  const SqlValue five = SqlValue::Of(Kind::Integer, 5);
  const SqlValue name = SqlValue::Of(Kind::Text, "Ana d'Ávila");
  const SqlValue day = SqlValue::Of(Kind::Stamp, "2024-02-01T10:00:00.000");
  const struct {
    SqlValue field;
    std::string_view text;
    bool fits;
  } cases[] = {
      {five, "n = 5", true},
      {five, "n=5.0", true},
      {five, "n <= 4,99", false},
      {five, "n <> 6", true},
      {five, "n >= '5'", true},
      {five, "n > 10", false},
      {name, "n = 'Ana d''Ávila'"_w, true},
      {name, "n = 'ana d''Ávila'"_w, false},
      {name, "n LIKE 'ANA*'", true},
      {name, "[n] like '%d''ávila'"_w, true},
      {name, "n LIKE '*Á*'"_w, true},
      {name, "n LIKE 'Ávila'"_w, false},
      {name, "n LIKE '*'", true},
      {name, "n > 'A'", true},
      {name, "n = 5", false},
      {day, "n > #31/01/2024#", true},
      {day, "n < #1/2/2024#", false},
      {SqlValue::Of(Kind::Text, "2024-02-01"), "n = #01/02/2024#", true},
      {{}, "n = ''", false},
      {{}, "n <> 'x'", false},
      {SqlValue::Of(Kind::Text, ""), "n = ''", true},
  };
  for (const auto& row : cases) EXPECT_EQ(Criteria(row.text).Fits(row.field), row.fits) << row.text;
  for (const auto text :
       {"", "n", "n =", "n = 'a", "n = 'a'b'", "= 5", "n LIKE 5", "n = #xx#", "n = 5 AND m = 6", "[n = 5"})
    EXPECT_THROW(Criteria{text}, SqlError) << text;
}

}  // namespace

}  // namespace tessera::sql
