// The connection text of `SQL base.Abre`: `key=value` parted by ";", keys blind to case, values plain, in
// quotes or in braces.
#pragma once

#include <string>
#include <string_view>

namespace tessera::sql {

enum class Engine { Sqlite, PostgreSql, MariaDb, Odbc };

// Where a connection leads; texts are program text.
struct ConnectionTarget {
  Engine engine = Engine::Odbc;
  std::string path;  // of a database file, as the program wrote it, or ":memory:"
  std::string server;
  std::string port;
  std::string database;
  std::string user;
  std::string password;
  std::string whole;  // the text as it came, which is what ODBC takes
};

// A text without "=" is the path of a database file, and so is one that names neither driver nor source but a
// file. What speaks of none of the known servers goes whole to ODBC.
ConnectionTarget ReadConnectionText(std::string_view text);

}  // namespace tessera::sql
