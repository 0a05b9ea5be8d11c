// A field's value as the database holds it, and its two ways: into the language, and back into a column.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "values/value.h"

namespace tessera::sql {

enum class Kind : std::uint8_t {
  Null,
  Integer,  // `integer`
  Real,     // `real`
  Text,     // `text`, UTF-8
  Decimal,  // `text`, digits with "." as mark, exact
  Truth,    // `integer`, 0 or 1
  Date,     // `text`, yyyy-mm-dd
  Time,     // `text`, hh:mm:ss, a fraction behind it
  Stamp,    // `text`, both parted by "T"
  Bytes,    // `text`
};

struct SqlValue {
  Kind kind = Kind::Null;
  std::int64_t integer = 0;
  double real = 0;
  std::string text;

  bool operator==(const SqlValue&) const = default;

  static SqlValue Of(Kind kind, std::int64_t integer) { return {kind, integer, 0, {}}; }
  static SqlValue Of(double real) { return {Kind::Real, 0, real, {}}; }
  static SqlValue Of(Kind kind, std::string text) { return {kind, 0, 0, std::move(text)}; }
};

// What a column takes. A database file's columns go by the affinity of their declared type: `Any` keeps text
// as it stands, `Numeric` makes a number of a text that is one.
enum class ColumnKind : std::uint8_t {
  Text,
  Any,
  Integer,
  Real,
  Decimal,
  Numeric,
  Truth,
  Date,
  Time,
  Stamp,
  Bytes
};

// The field as the language reads it: a number, a text, a truth word, a date. NULL is the empty value. A
// number with more digits than the language keeps is a text.
Value FieldValue(const SqlValue& value);

// The value that a column of the kind stores. An empty text is NULL where the column is no text. Fails with
// an `SqlError` that names `column` where the value doesn't suit it.
SqlValue ColumnValue(const Value& value, ColumnKind kind, std::string_view column);

}  // namespace tessera::sql
