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
      : ArgumentView(run, {parts, parts.size(), nullptr}, signature, first) {}

  // The argument as the program wrote it. Failure 9 beyond the list.
  const std::string& Raw(ArgumentName name) const { return Part(first_ + signature_.PlaceOf(name)); }
  bool IsEmpty(ArgumentName name) const { return Raw(name).empty(); }

  // The value of a place that is computed.
  Value Number(ArgumentName name) const { return NumberAt(first_ + signature_.PlaceOf(name)); }

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
  std::string Text(ArgumentName name) const {
    const std::size_t place = first_ + signature_.PlaceOf(name);
    const std::string& part = Part(place);
    if (IsLiteralAnswer(place)) return std::string(Unquote(part));
    if (HasForm(place)) return list_.forms->Text(run_, place).ToText();
    return EvalText(run_, part).ToText();
  }

  // The same without a copy, where the text lies ready; else `own` holds it. It is good until a variable is
  // written.
  std::string_view TextView(ArgumentName name, std::string& own) const {
    const std::size_t place = first_ + signature_.PlaceOf(name);
    if (IsLiteralAnswer(place)) return Unquote(list_.parts[place]);
    std::string_view text;
    if (HasForm(place) && list_.forms->ReadText(run_, place, text)) return text;
    own = Text(name);
    return own;
  }

  // The places from an argument on, up to the first empty one.
  std::span<const std::string> List(ArgumentName name) const {
    const std::size_t begin = first_ + signature_.PlaceOf(name);
    return list_.parts.subspan(std::min(begin, list_.parts.size()), CountFrom(begin));
  }

  // The values of these places as texts, one behind the other.
  std::string Joined(ArgumentName name) const {
    const std::size_t begin = first_ + signature_.PlaceOf(name);
    std::string joined;
    for (std::size_t i = 0, count = CountFrom(begin); i < count; ++i) joined += NumberAt(begin + i).ToText();
    return joined;
  }

  // A place of the list by its number, and how many there are.
  const std::string& Part(std::size_t place) const {
    static const std::string empty;
    if (place >= list_.places) FailSubscript();
    return place < list_.parts.size() ? list_.parts[place] : empty;
  }
  std::size_t Places() const { return list_.places; }

  // The value of a place by its number.
  Value NumberAt(std::size_t place) const {
    const std::string& part = Part(place);
    if (IsLiteralAnswer(place)) return Unquote(part);
    if (HasForm(place)) return list_.forms->Number(run_, place);
    return EvalNumber(run_, part);
  }

  // The same list, read by another signature from a place on.
  ArgumentView As(const Signature& signature, std::size_t first = 0) const {
    return {run_, list_, signature, first};
  }

 protected:
  // The pieces of a list of `places`; those behind the last one are empty. Forms stand beside a text that
  // never changes.
  struct Cut {
    std::span<const std::string> parts;
    std::size_t places;
    ArgumentForms* forms;
  };

  ArgumentView(Run& run, const Cut& list, const Signature& signature, std::size_t first)
      : run_(run), list_(list), signature_(signature), first_(first) {}

 private:
  // The answer of a call that was run before the list was cut; the form knows nothing of it.
  bool IsAnswer(std::size_t place) const {
    return list_.forms->parts()[place].empty() && !list_.parts[place].empty();
  }
  bool HasForm(std::size_t place) const {
    return list_.forms != nullptr && place < list_.parts.size() && !IsAnswer(place);
  }
  bool IsLiteralAnswer(std::size_t place) const {
    return list_.forms != nullptr && place < list_.parts.size() && IsAnswer(place) &&
           list_.parts[place].starts_with('"') && run_.variables.SymbolsTellAll();
  }

  // How many places from one on are not empty.
  std::size_t CountFrom(std::size_t begin) const {
    std::size_t end = begin;
    while (end < list_.parts.size() && !list_.parts[end].empty()) ++end;
    return end - begin;
  }

  Run& run_;
  Cut list_;
  const Signature& signature_;
  std::size_t first_;
};

namespace detail {

struct ListOfCall {
  explicit ListOfCall(const WordCall& call) : places(call.word.Places()) {
    const bool splitAtEqual = call.word.Has(trait::kEqualSign);
    if (call.forms != nullptr) {
      if (call.forms->Cut(call.run, places, splitAtEqual)) {
        forms = call.forms;
        list = forms->parts();
        return;
      }
      if (const auto isByForms =
              call.forms->CutBehindCalls(call.run, places, splitAtEqual, call.answers, parts)) {
        if (*isByForms) forms = call.forms;
        list = parts;
        return;
      }
    }
    parts = SplitArguments(call.run, call.text, places, splitAtEqual, false);
    list = parts;
  }
  ListOfCall(const ListOfCall&) = delete;
  ListOfCall& operator=(const ListOfCall&) = delete;

  std::size_t places;
  ArgumentForms* forms = nullptr;
  std::span<const std::string> list;
  std::vector<std::string> parts;  // where it is not that of the forms
};

}  // namespace detail

// The list stands before the view on it.
class Arguments : private detail::ListOfCall, public ArgumentView {
 public:
  // Failure 9 for more arguments than the word's list has places.
  explicit Arguments(const WordCall& call)
      : ListOfCall(call),
        ArgumentView(call.run, {list, places, forms}, call.word.arguments, 0),
        word_(call.word) {}
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  // The word that they stand behind.
  const tessera::Word& word() const { return word_; }

  // The arguments in another form of the word.
  ArgumentView In(std::string_view form) const {
    return As(FindForm(word_.more.otherForms, form)->arguments);
  }

 private:
  const tessera::Word& word_;
};

}  // namespace tessera
