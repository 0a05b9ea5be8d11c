// What the checker tells about a program: a rule, the place where it was broken, what is wrong and what to
// do. Texts are UTF-8; places are those of the editors' sources.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::check {

// An error: the program can't start, or the statement can never do what it says. A warning: it runs
// otherwise than it reads.
enum class Severity : std::uint8_t { Warning, Error };

struct Rule {
  std::string_view code;  // "T0101"; the manual has a section of that name
  Severity severity;
  std::string_view title;
};

// A stretch of an editor's source, on one line. Line and column count from 1, a column is a character.
struct Span {
  std::size_t editor = 0;
  std::size_t line = 1;
  std::size_t column = 1;
  std::size_t size = 1;

  auto operator<=>(const Span&) const = default;  // NOLINT(modernize-use-nullptr): it takes the 0 for one
};

// A second place that helps: where a block was opened, where a name was declared.
struct Note {
  Span span;
  std::string text;
};

struct Finding {
  const Rule* rule;
  Span span;
  std::string message;  // what is wrong
  std::string advice;   // what to do
  std::vector<Note> notes;
};

}  // namespace tessera::check
