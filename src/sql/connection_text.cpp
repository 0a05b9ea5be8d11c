#include "sql/connection_text.h"

#include <map>

#include "text/one_based.h"

namespace tessera::sql {

namespace {

using Keys = std::map<std::string, std::string>;  // by the key in upper case

// The value that begins at `at`, which moves behind its ";".
std::string TakeValue(std::string_view text, std::size_t& at) {
  while (at < text.size() && text[at] == ' ') ++at;
  const char open = at < text.size() ? text[at] : '\0';
  const char close = open == '{' ? '}' : open;
  if (open == '{' || open == '"' || open == '\'') {
    const std::size_t end = text.find(close, at + 1);
    if (end != std::string_view::npos) {
      const std::string_view value = text.substr(at + 1, end - at - 1);
      const std::size_t next = text.find(';', end);
      at = next == std::string_view::npos ? text.size() : next + 1;
      return std::string(value);
    }
  }
  const std::size_t end = std::min(text.find(';', at), text.size());
  const std::string_view value = Trim(text.substr(at, end - at));
  at = std::min(end + 1, text.size());
  return std::string(value);
}

Keys ReadKeys(std::string_view text) {
  Keys keys;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find_first_of("=;", at);
    if (end == std::string_view::npos) break;
    const std::string key = Upper(Trim(text.substr(at, end - at)));
    at = end + 1;
    if (text[end] == '=') keys.try_emplace(key, TakeValue(text, at));
  }
  return keys;
}

std::string First(const Keys& keys, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (const auto found = keys.find(name); found != keys.end() && !found->second.empty())
      return found->second;
  }
  return {};
}

Engine EngineOf(const Keys& keys) {
  const std::string driver = Upper(First(keys, {"DRIVER", "PROVIDER"}));
  if (driver.starts_with("SQLITE")) return Engine::Sqlite;
  if (driver.starts_with("POSTGRESQL")) return Engine::PostgreSql;
  if (driver.starts_with("MYSQL") || driver.starts_with("MARIADB")) return Engine::MariaDb;
  if (driver.empty() && !keys.contains("DSN") && !First(keys, {"DATA SOURCE", "DATABASE", "DBQ"}).empty())
    return Engine::Sqlite;
  return Engine::Odbc;
}

}  // namespace

ConnectionTarget ReadConnectionText(std::string_view text) {
  ConnectionTarget target;
  target.whole = text;
  if (!Contains(text, "=")) {
    target.engine = Engine::Sqlite;
    target.path = Trim(text);
    return target;
  }
  const Keys keys = ReadKeys(text);
  target.engine = EngineOf(keys);
  target.path = First(keys, {"DATA SOURCE", "DATABASE", "DBQ"});
  target.server = First(keys, {"SERVER"});
  target.port = First(keys, {"PORT"});
  target.database = First(keys, {"DATABASE"});
  target.user = First(keys, {"UID", "USER ID"});
  target.password = First(keys, {"PWD", "PASSWORD"});
  return target;
}

}  // namespace tessera::sql
