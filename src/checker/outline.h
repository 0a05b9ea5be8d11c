// What one editor declares, and the order of its statements: the checker's picture of a program before any
// rule looks at it. It is made of one editor's text alone, so that a changed editor is read again by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "checker/form.h"
#include "checker/source.h"

namespace tessera::check {

inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// A variable of a `Var` line. `type` is as written, or "String" where nothing is.
struct Declared {
  std::string_view name = {};
  std::string_view type = {};
  bool isArray = false;
  std::int64_t count = 1;
  std::size_t statement = 0;
  const Token* token = nullptr;
  Tokens countTokens = {};
};

// A parameter or a local of a function.
struct Local {
  std::string_view name = {};
  std::string_view type = {};
  const Token* token = nullptr;
  bool isParameter = false;
};

struct Routine {
  bool isFunction = false;
  std::string_view name = {};
  std::string_view resultType = {};
  const Token* token = nullptr;  // its name, or the opening word where it has none
  std::size_t begin = 0;         // its first statement
  std::size_t end = 0;           // its closing statement, or one behind its last where nothing closes it
  bool isClosed = false;
  bool hasParens = false;
  std::vector<Local> locals = {};
  std::size_t parameters = 0;
  Tokens parameterTokens = {};
};

struct Label {
  std::string_view name = {};
  std::size_t statement = 0;
};

// A statement that makes an object: `Texto Nome, 2, 3`.
struct MadeObject {
  std::string_view family = {};  // the word as the table has it
  std::string_view name = {};
  bool isLiteral = false;
  std::size_t statement = 0;
  const Token* token = nullptr;
};

struct DatabaseField {
  std::string_view name = {};
  std::string_view type = {};
  std::int64_t size = 0;
  const Token* token = nullptr;
  std::size_t statement = 0;
};

struct Database {
  std::string_view name = {};
  std::size_t statement = 0;
  bool isClosed = false;
  std::vector<DatabaseField> fields = {};
};

struct DefinedWindow {
  std::string_view name = {};
  std::size_t statement = 0;
  const Token* token = nullptr;
};

struct Outline {
  std::vector<FormedWord> forms;       // of each statement
  std::vector<std::size_t> routineOf;  // of each statement: the row in `routines`, or kNone
  std::vector<Declared> variables;
  std::vector<Routine> routines;
  std::vector<Label> labels;
  std::vector<MadeObject> objects;
  std::vector<Database> databases;
  std::vector<DefinedWindow> windows;
};

Outline ReadOutline(const Source& source);

// What stands between the quotes of a literal, or the text of any other token.
std::string_view Bare(const Token& token);

// The digits of a token as a number; -1 where it is none.
std::int64_t IntegerOf(const Token& token);

}  // namespace tessera::check
