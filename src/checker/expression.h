// Reads an expression as its writer meant it, and tells where the language takes it otherwise.
#pragma once

#include <cstdint>
#include <string_view>

#include "checker/context.h"
#include "language/word.h"

namespace tessera::check {

// Where an expression stands: each place is evaluated in its own way.
enum class Place : std::uint8_t {
  RightSide,  // behind the "=" of an assignment
  Joined,     // between " & " there
  Argument,   // of a command or a call
  Condition,
  Return,
  Compound,  // behind "+=" and "-="
};

enum class Type : std::uint8_t { Unknown, Number, Text };

struct Sought {
  Place place = Place::Argument;
  Kind kind = Kind::Value;
  std::string_view argument = {};  // the name of the argument, of the language's word
  std::string_view words = {};     // keywords that may stand there instead
  const Word* word = nullptr;      // of which it is an argument
  Type target = Type::Unknown;     // of the variable that is assigned
};

// Tells what is wrong with the expression; its type as far as it is known.
Type CheckExpression(Context& context, Tokens tokens, const Sought& sought);

// The type of a type word.
Type TypeOf(std::string_view typeWord);

// The type of what a name reads, without telling anything.
Type TypeOfName(const Context& context, const Token& name);

}  // namespace tessera::check
