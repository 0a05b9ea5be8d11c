// What a database, or the rules of recordsets, refuse. The command `SQL` catches it and shows its text.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace tessera::sql {

class SqlError : public std::exception {
 public:
  // `text` in the program's code page.
  explicit SqlError(std::string text) : text_(std::move(text)) {}
  explicit SqlError(std::string_view text) : text_(text) {}

  const std::string& text() const { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

}  // namespace tessera::sql
