#include "recorddb/tsa_writer.h"

#include "image/codec.h"
#include "recorddb/database_table.h"
#include "recorddb/slots.h"
#include "text/one_based.h"

namespace tessera {

namespace {

std::string Plain(const TsaField& field, const Value& value) {
  if (field.type == kTypeString)
    return std::string(Left(value.ToText(), static_cast<std::size_t>(field.size)));
  return field.type == kTypeDecimal ? BytesOf(value.ToDouble()) : BytesOf(value.ToInteger());
}

}  // namespace

std::string EncodeTsaHeader(const TsaHeader& header, Random& random) {
  std::string bytes(tsa::kHeaderLength, tsa::kBlank);
  const auto write = [&](tsa::Slot place, std::string_view plain) {
    SlotWrite(bytes, place, EncodeTrimmable(plain, random));
  };
  SlotWrite(bytes, tsa::kLockByte, {&tsa::kFree, 1});
  write(tsa::kCount, std::to_string(header.count));
  write(tsa::kName, header.name);
  write(tsa::kRecordLength, std::to_string(header.recordLength));
  write(tsa::kCreated, header.created);
  write(tsa::kLastRun, header.lastRun);
  for (std::size_t i = 0; i < header.fields.size(); ++i) {
    write(tsa::FieldName(i), header.fields[i].name);
    write(tsa::FieldSize(i), std::to_string(header.fields[i].size));
    write(tsa::FieldType(i), header.fields[i].type);
  }
  write(tsa::FieldName(header.fields.size()), "#Fim");
  write(tsa::kPassword, header.password);
  return bytes;
}

std::string EncodeTsaRecord(const TsaHeader& header, std::span<const Value> values, Random& random) {
  std::string record(static_cast<std::size_t>(header.recordLength), tsa::kBlank);
  for (std::size_t i = 0; i < header.fields.size(); ++i) {
    SlotWrite(record, header.fields[i].slot, EncodeText(Plain(header.fields[i], values[i]), random));
  }
  return record;
}

}  // namespace tessera
