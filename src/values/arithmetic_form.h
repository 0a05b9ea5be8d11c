// FAST: an arithmetic text that never changes, read once for each choice of signs that its names come to
// have. What the parser would do with the text stands as rows of operations on an accumulator; running them
// gives what substituting and parsing would, or gives up before anything has happened.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "values/name_form.h"
#include "values/rounding_memo.h"

namespace tessera {

class ArithmeticForm {
 public:
  // Nothing for a text that is better left to the parser: one that it would refuse, or whose meaning hangs on
  // the digits that stand for a name. `answers` is how many names of the text stand for answers of calls.
  static std::optional<ArithmeticForm> Of(VariableStore& store, std::string_view text,
                                          std::size_t answers = 0);

  // Stands for the answer of a call while its text is read: longer than a name of the program can be.
  static std::string AnswerName(std::size_t answer);
  static constexpr std::size_t kMostAnswers = 4;
  using Answers = std::array<double, kMostAnswers>;

  // The result where every step of it is whole, at most 1e15 in magnitude.
  bool EvaluateWhole(VariableStore& store, std::int64_t& result, const Answers& answers = {}) const {
    const Outcome outcome = ComputeWhole(store, result, answers);
    return outcome == Outcome::Done || (outcome == Outcome::OtherSigns && TakeSigns(store, answers) &&
                                        ComputeWhole(store, result, answers) == Outcome::Done);
  }

  // The result, rounded to 15 digits. 0, or a magnitude from 1e-8 up to 1e15.
  bool EvaluateFloat(VariableStore& store, RoundingMemo& memo, double& result,
                     const Answers& answers = {}) const;

  // True if only whole numbers can come of whole numbers.
  bool IsWhole() const { return isWhole_; }

 private:
  friend class ArithmeticReader;

  enum class Operation : std::uint8_t { Load, PushAndLoad, Add, Subtract, Multiply, Divide, Modulo, Power };
  enum class Source : std::uint8_t { Constant, Name, Answer, Stack };
  enum class Outcome : std::uint8_t { Done, GivenUp, OtherSigns };

  // acc = acc op source; with the stack as source it is acc = popped op acc. PushAndLoad keeps acc on the
  // stack.
  struct Row {
    Operation operation = Operation::Load;
    Source source = Source::Constant;
    bool isNegative = false;  // of a name or an answer: it has to be, and its sign stands as an operator
    std::uint8_t answer = 0;  // which of them
    double number = 0;
    NameForm name = {};
  };

  // A character of the text, or a name by its place in `names_`.
  struct Piece {
    char character = '\0';
    std::int16_t name = -1;
  };

  // A bit for each of the first names: whether it is negative.
  using Signs = std::uint32_t;
  static constexpr std::size_t kMostSigns = 32;
  struct Reading {
    Signs negative = 0;
    std::vector<Row> rows;  // none where the text is left to the parser
  };

  static constexpr std::size_t kMostLevels = 8;
  static constexpr double kMostExact = 1e15;

  using Integers = std::vector<std::int32_t>;
  static Outcome ReadWhole(Integers& integers, const Row& row, const Answers& answers, std::int64_t& value);
  static Outcome ReadFloat(VariableStore& store, RoundingMemo& memo, const Row& row, const Answers& answers,
                           double& value);
  static bool IsNegative(VariableStore& store, const Row& name, const Answers& answers);
  Outcome ComputeWhole(VariableStore& store, std::int64_t& result, const Answers& answers) const;
  Outcome ComputeFloat(VariableStore& store, RoundingMemo& memo, double& result,
                       const Answers& answers) const;
  std::vector<Row> RowsWith(Signs negative) const;
  bool TakeSigns(VariableStore& store, const Answers& answers) const;

  std::vector<Piece> pieces_;
  std::vector<Row> names_;
  mutable Reading reading_;              // by the signs that were met last
  mutable std::vector<Reading> others_;  // by others
  bool isWhole_ = true;
};

}  // namespace tessera
