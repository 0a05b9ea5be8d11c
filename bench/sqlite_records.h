// SQLite doing what the record programs of the bench do, through its C interface: one transaction for each
// insert and update, `synchronous=OFF`, a statement for each record read and looked up.
#pragma once

#include <string>

namespace tessera::bench {

// Milliseconds for 100,000 records each.
struct SqliteTimes {
  double insert, read, update, order, find;
};

SqliteTimes MeasureSqlite(const std::string& file);

}  // namespace tessera::bench
