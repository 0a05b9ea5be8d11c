// The text of a call's arguments on its way to the handler, and, beside a text that never changes, the list
// that it is cut into, with a form for each place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "values/run.h"
#include "values/term_form.h"
#include "values/value.h"

namespace tessera {

struct Command;
class ListCalls;
struct ReadyFunction;
struct Run;

// FAST: what cutting the text gives, each time the same.
class ArgumentForms {
 public:
  // `text` outlives the forms. Names of answers may stand in it.
  explicit ArgumentForms(std::string_view text);
  ~ArgumentForms();
  ArgumentForms(const ArgumentForms&) = delete;
  ArgumentForms& operator=(const ArgumentForms&) = delete;

  // Cuts the text at the first call; a word always cuts alike. False for a text that has to be cut anew each
  // time: a call in it is to be replaced before, or it has more pieces than places.
  bool Cut(Run& run, std::size_t places, bool splitAtEqual) {
    if (state_ == State::Uncut) CutFirst(run, places, splitAtEqual);
    if (state_ != State::Cut) return false;
    RenewNumbers();
    return true;
  }

  // How many pieces `CutBehindCalls` gives as far as the forms tell of them; nothing for a text that is cut
  // in another way, or has an empty piece.
  std::optional<std::size_t> PiecesBehindCalls(Run& run, std::size_t places, bool splitAtEqual);

  // The same where calls are to be replaced before: runs them, or takes the answers of those that were run,
  // and puts the list as it is this time into `parts`. Nothing, and nothing has been run, for a text that has
  // to be cut anew. Else whether the forms tell of the pieces; those that stand here as empty texts, and
  // there as others, are answers.
  std::optional<bool> CutBehindCalls(Run& run, std::size_t places, bool splitAtEqual,
                                     std::span<const std::string> answers,
                                     std::vector<std::string>& parts) const;

  // The pieces up to the last one that is not empty.
  const std::vector<std::string>& parts() const { return parts_; }

  // True if the text calls no function of the program.
  bool IsWithoutFunctions(const Run& run) {
    if (!isWithoutFunctions_) isWithoutFunctions_ = FindNoFunction(run);
    return *isWithoutFunctions_;
  }

  // What `EvalNumber` and `EvalText` give for a place.
  Value Number(Run& run, std::size_t place) { return TermAt(run, place).Evaluate(run); }
  Value Text(Run& run, std::size_t place) { return TermAt(run, place).EvaluateText(run); }

  // The same as `Text`, where it is a text that lies ready; else false. It is good until a variable is
  // written.
  bool ReadText(Run& run, std::size_t place, std::string_view& text) {
    return TermAt(run, place).ReadText(run.variables, text);
  }

  // The same as `Number`, where it is a whole number and symbols tell of it; else false.
  bool ReadWhole(Run& run, std::size_t place, std::int64_t& whole) {
    return TermAt(run, place).ReadWhole(run.variables, whole);
  }

  // Who handles the word of this call, null for nobody, for the dispatcher alone; the function that it calls,
  // for the engine.
  std::optional<const Command*> command;
  ReadyFunction* function = nullptr;

 private:
  enum class State : std::uint8_t { Uncut, Cut, CutBehindCalls, Never };

  void RenewNumbers() const {
    for (std::size_t i = 0; i < numbers_.size(); ++i) numbers_[i].Renew(parts_[i]);
  }
  void CutFirst(Run& run, std::size_t places, bool splitAtEqual);
  bool FindAnswers();
  bool FindNoFunction(const Run& run) const;
  const TermForm& TermAt(Run& run, std::size_t place) {
    const auto& term = terms_[place];
    return term ? *term : MakeTerm(run, place);
  }
  const TermForm& MakeTerm(Run& run, std::size_t place);

  std::string_view text_;
  State state_ = State::Uncut;
  std::unique_ptr<const ListCalls> calls_;
  std::vector<std::pair<std::size_t, std::size_t>> answers_;  // a place, and whose answer stands there
  mutable std::vector<std::string> parts_;
  std::vector<VariableStore::NumberPlaces> numbers_;    // of each of them, in a body
  std::vector<std::unique_ptr<const TermForm>> terms_;  // made at first use
  std::optional<bool> isWithoutFunctions_;
};

// A text of arguments, with its forms if it has any.
struct ArgumentText {
  ArgumentText(std::string_view raw, ArgumentForms* itsForms = nullptr,
               std::span<const std::string> itsAnswers = {})
      : text(raw), forms(itsForms), answers(itsAnswers) {}
  ArgumentText(const std::string& raw) : text(raw) {}
  ArgumentText(const char* raw) : text(raw) {}

  std::string_view text;
  ArgumentForms* forms = nullptr;
  std::span<const std::string> answers = {};  // of the calls that were run for it
};

}  // namespace tessera
