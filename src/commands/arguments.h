// The arguments of one use of a word, by the names that the word's row gives them. The raw text is cut into
// places at once, and each place is evaluated when the handler asks for it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/command_table.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

// Named places of a list that somebody else holds: all of a command's, or the values of one of its keywords.
class ArgumentView {
 public:
  // `first` is the place of the signature's first argument.
  ArgumentView(Run& run, std::span<const std::string> parts, const Signature& signature, std::size_t first)
      : run_(run), parts_(parts), signature_(signature), first_(first) {}

  // The argument as the program wrote it. Failure 9 beyond the list.
  const std::string& Raw(ArgumentName name) const { return Part(first_ + signature_.PlaceOf(name)); }
  bool IsEmpty(ArgumentName name) const { return Raw(name).empty(); }

  // The value of a place that is computed.
  Value Number(ArgumentName name) const { return EvalNumber(run_, Raw(name)); }

  // The same, or nothing where the place is empty or its value the empty text.
  std::optional<Value> OptionalNumber(ArgumentName name) const {
    if (IsEmpty(name)) return std::nullopt;
    Value value = Number(name);
    if (const std::string* text = value.AsText(); text != nullptr && text->empty()) return std::nullopt;
    return value;
  }

  // The computed value in upper case, for comparisons with words.
  std::string Word(ArgumentName name) const { return Upper(Number(name).ToText()); }

  // The text of a place that must stay text: calls and variables, no arithmetic.
  std::string Text(ArgumentName name) const { return EvalText(run_, Raw(name)).ToText(); }

  // The places from an argument on, up to the first empty one.
  std::span<const std::string> List(ArgumentName name) const {
    const auto rest = parts_.subspan(first_ + signature_.PlaceOf(name));
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](const std::string& part) { return part.empty(); });
    return rest.first(static_cast<std::size_t>(end - rest.begin()));
  }

  // A place of the list by its number, and how many there are.
  const std::string& Part(std::size_t place) const {
    if (place >= parts_.size()) FailSubscript();
    return parts_[place];
  }
  std::size_t Places() const { return parts_.size(); }

  // The same list, read by another signature from a place on.
  ArgumentView As(const Signature& signature, std::size_t first = 0) const {
    return {run_, parts_, signature, first};
  }

 private:
  Run& run_;
  std::span<const std::string> parts_;
  const Signature& signature_;
  std::size_t first_;
};

namespace detail {

struct CutList {
  explicit CutList(const WordCall& call) {
    bool numericTarget = false;
    parts = SplitArguments(call.run, call.text, call.word.Places(), call.word.Has(trait::kEqualSign),
                           numericTarget);
  }

  std::vector<std::string> parts;
};

}  // namespace detail

// The list stands before the view on it.
class Arguments : private detail::CutList, public ArgumentView {
 public:
  // Failure 9 for more arguments than the word's list has places.
  explicit Arguments(const WordCall& call)
      : CutList(call), ArgumentView(call.run, parts, call.word.arguments, 0), word_(call.word) {}
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  // The arguments in another form of the word.
  ArgumentView In(std::string_view form) const {
    return As(FindForm(word_.more.otherForms, form)->arguments);
  }

 private:
  const tessera::Word& word_;
};

}  // namespace tessera
