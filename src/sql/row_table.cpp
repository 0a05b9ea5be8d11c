#include "sql/row_table.h"

#include <cstring>

namespace tessera::sql {

namespace {

constexpr std::size_t kBlock = 256 << 10;

// A row is its number of values, then each value: its kind, and an integer, a float or a counted text.
template <typename Number>
void Pack(std::string& out, Number number) {
  char bytes[sizeof number];
  std::memcpy(bytes, &number, sizeof number);
  out.append(bytes, sizeof number);
}

template <typename Number>
Number Unpack(const char*& at) {
  Number number;
  std::memcpy(&number, at, sizeof number);
  at += sizeof number;
  return number;
}

void PackValue(std::string& out, const SqlValue& value) {
  out.push_back(static_cast<char>(value.kind));
  switch (value.kind) {
    case Kind::Null:
      break;
    case Kind::Integer:
    case Kind::Truth:
      Pack(out, value.integer);
      break;
    case Kind::Real:
      Pack(out, value.real);
      break;
    default:
      Pack(out, static_cast<std::uint32_t>(value.text.size()));
      out += value.text;
  }
}

void Skip(const char*& at) {
  const auto kind = static_cast<Kind>(*at++);
  switch (kind) {
    case Kind::Null:
      break;
    case Kind::Integer:
    case Kind::Truth:
    case Kind::Real:
      at += sizeof(std::int64_t);
      break;
    default: {
      const auto length = Unpack<std::uint32_t>(at);
      at += length;
    }
  }
}

SqlValue UnpackValue(const char*& at) {
  const auto kind = static_cast<Kind>(*at++);
  switch (kind) {
    case Kind::Null:
      return {};
    case Kind::Integer:
    case Kind::Truth:
      return SqlValue::Of(kind, Unpack<std::int64_t>(at));
    case Kind::Real:
      return SqlValue::Of(Unpack<double>(at));
    default: {
      const auto length = Unpack<std::uint32_t>(at);
      const char* begin = at;
      at += length;
      return SqlValue::Of(kind, std::string(begin, length));
    }
  }
}

}  // namespace

const char* RowTable::Store(const SqlRow& row) {
  packed_.clear();
  Pack(packed_, static_cast<std::uint16_t>(row.size()));
  for (const SqlValue& value : row) PackValue(packed_, value);
  if (packed_.size() > left_) {
    left_ = std::max(kBlock, packed_.size());
    free_ = blocks_.emplace_back(std::make_unique_for_overwrite<char[]>(left_)).get();
  }
  char* const place = free_;
  std::memcpy(place, packed_.data(), packed_.size());
  free_ += packed_.size();
  left_ -= packed_.size();
  return place;
}

void RowTable::Append(const SqlRow& row) {
  rows_.push_back(Store(row));
}

void RowTable::Replace(std::size_t row, const SqlRow& values) {
  rows_[row] = Store(values);
}

SqlValue RowTable::Read(std::size_t row, std::size_t column) const {
  const char* at = rows_[row] + sizeof(std::uint16_t);
  for (std::size_t i = 0; i < column; ++i) Skip(at);
  return UnpackValue(at);
}

SqlRow RowTable::ReadRow(std::size_t row) const {
  const char* at = rows_[row];
  SqlRow values(Unpack<std::uint16_t>(at));
  for (SqlValue& value : values) value = UnpackValue(at);
  return values;
}

}  // namespace tessera::sql
