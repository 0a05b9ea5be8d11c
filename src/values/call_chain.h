// FAST: the calls in a text that never changes, in the order in which the search comes to them, each with a
// form. What one of them gives is an argument of a later one, or stands in what is left of the text at the
// end.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "values/arithmetic_form.h"
#include "values/call_form.h"
#include "values/calls.h"
#include "values/run.h"
#include "values/value.h"

namespace tessera {

class CallChain {
 public:
  static constexpr std::size_t kMostCalls = ArithmeticForm::kMostAnswers;

  // What the calls gave that were run: `pieces` of those that are arguments of others, as these take them.
  struct Answers {
    std::array<Value, kMostCalls> values;
    std::array<std::string, kMostCalls> pieces;
    std::size_t count = 0;
  };

  // `text` is trimmed, without marks, and outlives the chain. `around` becomes what is left of it, with a
  // name for each answer. Functions of the program stand behind the calls of the language. Nothing for a text
  // without calls or with too many, nor for one in which more than a list hangs on an answer.
  static std::optional<CallChain> Of(const Run& run, std::string_view text, std::string& around);

  // The same for a text that is one call, with calls of the language in its list that go before it.
  static std::optional<CallChain> OfOneCall(const Run& run, std::string_view text);

  std::size_t size() const { return links_.size(); }
  const CallForm& call(std::size_t i) const { return *links_[i].form; }
  // Whether the answer is an argument of another call; else its name stands in what is left.
  bool isArgument(std::size_t i) const { return links_[i].isArgument; }
  // All are functions of the program.
  bool areOwn() const { return call(0).isOwn(); }
  // None is.
  bool areOfTheLanguage() const { return !call(size() - 1).isOwn(); }

  // Whether the answers mean the same to the rules, for this target. Asked before anything is run.
  bool Serves(bool numericTarget) const { return numericTarget ? !keepsCommas_ : !mayLoseRest_; }

  // Whether commas in the text become points when the answer of a call is written into it.
  bool IsNumeric(std::size_t i, bool numericTarget) const { return numericTarget || links_[i].isNumeric; }

  // Runs the next call. False where its answer is an argument and more than one piece of the list.
  bool RunNext(Run& run, bool numericTarget, Answers& answers) const;

  // The same for all of them.
  bool RunAll(Run& run, bool numericTarget, Answers& answers) const;

  // What the answer of a text's one call reads as, as `CallForm::Settle` has it.
  std::optional<Value> Settle(Run& run, Answers& answers, bool numericTarget, bool isList) const {
    return links_.back().form->Settle(run, answers.values[size() - 1], IsNumeric(size() - 1, numericTarget),
                                      isList);
  }

  // What the rules make of the text.
  ReplacedCalls Written(const Run& run, const Answers& answers, bool numericTarget) const;

 private:
  struct Link {
    std::unique_ptr<const CallForm> form = nullptr;
    std::string name;
    bool isArgument = false;
    bool isNumeric = false;  // it is a numeric function, or one before it
  };

  explicit CallChain(std::string_view text) : text_(text) {}
  bool Add(const Run& run, std::string& around);
  bool IsPiece(const Run& run, std::string_view answer, bool mayHoldCommas) const;

  std::string_view text_;
  std::vector<Link> links_;
  bool keepsCommas_ = false;  // a list behind an answer holds commas
  bool mayLoseRest_ = false;  // something stands behind a call whose argument may be a variable
};

}  // namespace tessera
