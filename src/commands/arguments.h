// The arguments of one command: its raw text is cut into places at once, and each place is evaluated when
// the handler asks for it. Places count from 0; a command has a fixed number of them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "values/eval.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

// How many places a command's list has: the least of the system's sizes above the arguments it takes, so that
// one argument too many is passed over and a longer list is failure 9.
inline constexpr std::size_t kTwoArguments = 3;
inline constexpr std::size_t kThreeArguments = 4;
inline constexpr std::size_t kFiveArguments = 6;
inline constexpr std::size_t kListOfArguments = 101;

class Arguments {
 public:
  // Failure 9 for more pieces than places.
  Arguments(Run& run, std::string_view text, std::size_t places)
      : run_(run), parts_(SplitArguments(run, text, places)) {}

  bool IsEmpty(std::size_t place) const { return parts_[place].empty(); }

  // The argument as the program wrote it.
  const std::string& Raw(std::size_t place) const { return parts_[place]; }

  // The value of a place that is computed.
  Value Number(std::size_t place) const { return EvalNumber(run_, parts_[place]); }

  // The same, or nothing where the place is empty or its value the empty text.
  std::optional<Value> OptionalNumber(std::size_t place) const {
    if (IsEmpty(place)) return std::nullopt;
    Value value = Number(place);
    if (const std::string* text = value.AsText(); text != nullptr && text->empty()) return std::nullopt;
    return value;
  }

  // The text of a place that must stay text: calls and variables, no arithmetic.
  std::string Text(std::size_t place) const { return EvalText(run_, parts_[place]).ToText(); }

 private:
  Run& run_;
  std::vector<std::string> parts_;
};

}  // namespace tessera
