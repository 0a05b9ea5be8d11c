// The bytes of a record file's header and records, for whoever makes one: the `BD` block and the tool.
#pragma once

#include <span>
#include <string>

#include "platform/host.h"
#include "recorddb/tsa_reader.h"
#include "values/value.h"

namespace tessera {

// A header of 20,000 bytes as `header` tells; the fields' slots and whether it is busy do not count. What is
// too long for its slot loses its tail.
std::string EncodeTsaHeader(const TsaHeader& header, Random& random);

// A record of those values, one for each field. A text longer than its field loses its tail. Failures 6 and
// 13 for what is no number of its field's type.
std::string EncodeTsaRecord(const TsaHeader& header, std::span<const Value> values, Random& random);

}  // namespace tessera
