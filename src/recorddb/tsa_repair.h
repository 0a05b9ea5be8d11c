// What a sudden end of a program, or of a disk, leaves in a record file, and its mending. For the tool: a
// running program never repairs.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/binary_file.h"
#include "platform/host.h"
#include "recorddb/tsa_reader.h"

namespace tessera {

struct TsaFindings {
  std::int32_t live = 0;
  std::int32_t deleted = 0;
  // Records of nothing but blanks: insertions that did not come to their end.
  std::vector<std::int32_t> blank;
  // Other records with a field that does not decode. Nothing mends them.
  std::vector<std::int32_t> damaged;
  // Whole records in the file that its count does not tell of, and those it tells of that are not there.
  std::int32_t untold = 0;
  std::int32_t missing = 0;
  // Bytes behind the last whole record.
  std::uint64_t rest = 0;
  bool busy = false;

  bool NeedsRepair() const { return busy || !blank.empty() || untold > 0 || missing > 0 || rest > 0; }
};

// Failures of the reading alone.
TsaFindings ExamineTsa(const BinaryFile& file, const TsaHeader& header);

// Marks blank records as deleted, lets the count tell of the whole records that are there, cuts what stands
// behind them, and frees the lock byte. The caller holds the file's lock. Failures of a disk.
void RepairTsa(BinaryFile& file, const TsaHeader& header, const TsaFindings& findings, Random& random);

}  // namespace tessera
