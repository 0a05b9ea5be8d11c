#include "recorddb/tsa_repair.h"

#include <algorithm>

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/record_commands.h"
#include "recorddb/slots.h"

namespace tessera {

namespace {

std::uint64_t PlaceOf(const TsaHeader& header, std::int64_t record) {
  return tsa::RecordPosition(static_cast<std::uint64_t>(header.recordLength),
                             static_cast<std::uint64_t>(record));
}

// Bytes of records in the file; the first one begins on the header's last byte.
std::uint64_t RecordBytes(const BinaryFile& file) {
  return file.Size() - (tsa::kHeaderLength - 1);
}

bool IsBlank(std::string_view bytes) {
  return bytes.find_first_not_of(tsa::kBlank) == std::string_view::npos;
}

}  // namespace

TsaFindings ExamineTsa(const BinaryFile& file, const TsaHeader& header) {
  const auto length = static_cast<std::uint64_t>(header.recordLength);
  TsaFindings findings;
  findings.busy = header.busy;
  // Without records the header's last byte is one of its blanks.
  const bool hasNone = file.Size() == tsa::kHeaderLength;
  const auto whole = hasNone ? 0 : static_cast<std::int64_t>(RecordBytes(file) / length);
  findings.missing = static_cast<std::int32_t>(std::max<std::int64_t>(header.count - whole, 0));
  findings.untold = static_cast<std::int32_t>(std::max<std::int64_t>(whole - header.count, 0));
  findings.rest = hasNone ? 0 : RecordBytes(file) % length;
  for (std::int32_t number = 0; number < std::min<std::int64_t>(header.count, whole); ++number) {
    const TsaRecord record = ReadTsaRecord(file, header, number);
    if (record.state == TsaState::Deleted) {
      ++findings.deleted;
    } else if (record.state == TsaState::Live) {
      ++findings.live;
    } else if (IsBlank(file.ReadBlankPadded(PlaceOf(header, number), length))) {
      findings.blank.push_back(number);
    } else {
      findings.damaged.push_back(number);
    }
  }
  return findings;
}

void RepairTsa(BinaryFile& file, const TsaHeader& header, const TsaFindings& findings, Random& random) {
  const auto length = static_cast<std::size_t>(header.recordLength);
  std::int32_t count = header.count - findings.missing;
  std::vector<std::int32_t> blank = findings.blank;
  // A record behind the last one may be one that an update has put there. Blanks that no record follows are
  // an insertion that the count never told of.
  const std::int32_t end = count + findings.untold;
  for (std::int32_t number = count; number < end; ++number) {
    if (!IsBlank(file.ReadBlankPadded(PlaceOf(header, number), length))) {
      count = number + 1;
    } else {
      blank.push_back(number);
    }
  }
  std::erase_if(blank, [count](std::int32_t number) { return number >= count; });
  std::string deleted(length, tsa::kBlank);
  SlotWrite(deleted, header.fields.front().slot, EncodeText(kDeletedMark, random));
  for (const std::int32_t number : blank) file.Write(PlaceOf(header, number), deleted);

  std::string area = file.ReadBlankPadded(1, tsa::kLockAreaLength);
  SlotWrite(area, tsa::kCount, std::string(tsa::kCount.width, tsa::kBlank));
  SlotWrite(area, tsa::kCount, EncodeText(std::to_string(count), random));
  SlotWrite(area, tsa::kLockByte, {&tsa::kFree, 1});
  SlotWrite(area, tsa::kHolderMark, {&tsa::kBlank, 1});
  file.Write(1, area);
  const std::uint64_t size = std::max<std::uint64_t>(PlaceOf(header, count) - 1, tsa::kHeaderLength);
  file.Resize(size);
  file.Sync();
}

}  // namespace tessera
