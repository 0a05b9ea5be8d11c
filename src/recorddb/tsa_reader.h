// Reads a record file without a descriptor, by what its header tells: for the tool's look from outside.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/binary_file.h"
#include "recorddb/tsa_layout.h"
#include "values/value.h"

namespace tessera {

struct TsaField {
  std::string name;
  std::string type;
  std::int32_t size = 0;  // as declared
  tsa::Slot slot;         // in a record
};

struct TsaHeader {
  bool busy = false;  // the lock byte is set
  std::int32_t count = 0;
  std::string name;
  std::int32_t recordLength = 0;
  std::string created;
  std::string lastRun;
  std::string password;  // empty where none is asked for
  std::vector<TsaField> fields;
};

enum class TsaProblem {
  TooShort,      // the file ends within its header
  NotDecodable,  // a part of the header that is needed does not decode
  BadLength,     // the fields don't make up the record length
};

std::variant<TsaHeader, TsaProblem> ReadTsaHeader(const BinaryFile& file);

enum class TsaState { Live, Deleted, Damaged };

struct TsaRecord {
  TsaState state = TsaState::Live;
  std::vector<std::optional<Value>> values;  // one for each field; nothing where it does not decode
};

// Record `number`, from 0. What lies behind the file's end does not decode.
TsaRecord ReadTsaRecord(const BinaryFile& file, const TsaHeader& header, std::int32_t number);

}  // namespace tessera
