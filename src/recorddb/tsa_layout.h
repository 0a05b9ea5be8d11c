// The layout of a record file. docs/formats/record_file.md tells it with an example in bytes.
// Positions count from 1, as everywhere in the system; widths are in bytes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/one_based.h"

namespace tessera::tsa {

struct Slot {
  Position position;
  std::size_t width;
};

inline constexpr std::size_t kHeaderLength = 20000;

inline constexpr Slot kLockByte{1, 1};
inline constexpr Slot kCount{2, 11};
inline constexpr Slot kName{13, 25};
inline constexpr Slot kRecordLength{38, 12};
inline constexpr Slot kCreated{50, 30};
inline constexpr Slot kLastRun{80, 30};
inline constexpr Slot kPassword{110, 25};

// First byte of the reserved area: set while one of our processes holds the lock byte, blank otherwise. A
// process that dies with the lock byte set leaves it behind, and the next one knows that nobody is there.
inline constexpr Slot kHolderMark{135, 1};
inline constexpr char kHeld = 'T';

// The part of the header that the lock protocol reads and writes: everything up to the holder's mark.
inline constexpr std::size_t kLockAreaLength = 135;

inline constexpr char kFree = '0';
inline constexpr char kBusy = '1';
inline constexpr char kBlank = ' ';

// Field i of the header's table, i from 0: its name, its declared size, its type word.
inline constexpr std::size_t kFieldStride = 48;
constexpr Slot FieldName(std::size_t i) {
  return {1000 + kFieldStride * i, 25};
}
constexpr Slot FieldSize(std::size_t i) {
  return {1025 + kFieldStride * i, 11};
}
constexpr Slot FieldType(std::size_t i) {
  return {1036 + kFieldStride * i, 12};
}

// KEPT: record 0 begins on the header's last byte, which belongs to both
// (RecordFile.TheFirstRecordBeginsOnTheHeadersLastByte).
constexpr std::uint64_t RecordPosition(std::uint64_t recordLength, std::uint64_t record) {
  return kHeaderLength + recordLength * record;
}

}  // namespace tessera::tsa
