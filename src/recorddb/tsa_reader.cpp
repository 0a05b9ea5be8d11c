#include "recorddb/tsa_reader.h"

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/database_table.h"
#include "recorddb/record_commands.h"
#include "recorddb/slots.h"

namespace tessera {

namespace {

// The field table of a header, up to the word that ends it.
std::vector<TsaField> ReadFields(std::string_view header) {
  std::vector<TsaField> fields;
  Position next = 1;
  for (std::size_t i = 0; i <= kFieldRows; ++i) {
    TsaField field;
    // A name or type word that is too long for its slot does not decode; the field is there all the same.
    field.name = TryDecodeText(SlotOf(header, tsa::FieldName(i))).value_or("Campo" + std::to_string(i + 1));
    if (field.name == "#Fim") return fields;
    field.size = DecodeDigits(SlotOf(header, tsa::FieldSize(i)));
    field.type = TryDecodeText(SlotOf(header, tsa::FieldType(i))).value_or("");
    const std::int32_t width = field.size + static_cast<std::int32_t>(kEncodedOverhead);
    if (width < 0) FailArgument();
    field.slot = {next, static_cast<std::size_t>(width)};
    next += field.slot.width;
    fields.push_back(std::move(field));
  }
  FailArgument();
}

TsaHeader Decode(std::string_view bytes) {
  TsaHeader header;
  header.busy = bytes[0] != tsa::kFree;
  header.count = DecodeDigits(SlotOf(bytes, tsa::kCount));
  header.recordLength = DecodeDigits(Trim(SlotOf(bytes, tsa::kRecordLength)));
  header.password = DecodeTrimmed(bytes, tsa::kPassword);
  header.fields = ReadFields(bytes);
  // What only tells is not needed: a name that was too long for its slot does not decode.
  header.name = TryDecodeText(SlotOf(bytes, tsa::kName)).value_or("");
  header.created = TryDecodeText(SlotOf(bytes, tsa::kCreated)).value_or("");
  header.lastRun = TryDecodeText(SlotOf(bytes, tsa::kLastRun)).value_or("");
  return header;
}

}  // namespace

std::variant<TsaHeader, TsaProblem> ReadTsaHeader(const BinaryFile& file) {
  // The header's last byte is the first record's first one, and a file without records has it too.
  if (file.Size() < tsa::kHeaderLength) return TsaProblem::TooShort;
  const std::string bytes = file.ReadBlankPadded(1, tsa::kHeaderLength);
  TsaHeader header;
  if (Guard([&] { header = Decode(bytes); })) return TsaProblem::NotDecodable;
  std::size_t length = 0;
  for (const TsaField& field : header.fields) length += field.slot.width;
  if (header.count < 0 || header.fields.empty() || length != static_cast<std::size_t>(header.recordLength)) {
    return TsaProblem::BadLength;
  }
  return header;
}

TsaRecord ReadTsaRecord(const BinaryFile& file, const TsaHeader& header, std::int32_t number) {
  const auto length = static_cast<std::uint64_t>(header.recordLength);
  const std::string bytes = file.ReadBlankPadded(
      tsa::RecordPosition(length, static_cast<std::uint64_t>(number)), static_cast<std::size_t>(length));
  TsaRecord record;
  if (TryDecodeText(SlotOf(bytes, header.fields.front().slot)) == kDeletedMark) {
    record.state = TsaState::Deleted;
    return record;
  }
  for (const TsaField& field : header.fields) {
    auto plain = TryDecodeText(SlotOf(bytes, field.slot));
    if (!plain) record.state = TsaState::Damaged;
    record.values.push_back(plain ? std::optional(FieldValue(field.type, *std::move(plain))) : std::nullopt);
  }
  return record;
}

}  // namespace tessera
