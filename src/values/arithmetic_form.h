// FAST: an arithmetic text that never changes, read once. What the parser would do with the text, were each
// name a plain number, stands as rows of operations on an accumulator; running them gives what substituting
// and parsing would, or gives up before anything has happened.
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
  bool EvaluateWhole(VariableStore& store, std::int64_t& result, const Answers& answers = {}) const;

  // The result, rounded to 15 digits. 0, or a magnitude from 1e-8 up to 1e15.
  bool EvaluateFloat(VariableStore& store, RoundingMemo& memo, double& result,
                     const Answers& answers = {}) const;

  // True if only whole numbers can come of whole numbers.
  bool IsWhole() const { return isWhole_; }

 private:
  friend class ArithmeticReader;

  enum class Operation : std::uint8_t { Load, Push, Add, Subtract, Multiply, Divide, Modulo, Power };
  enum class Source : std::uint8_t { Constant, Name, Answer, Stack };

  // acc = acc op source; with the stack as source it is acc = popped op acc.
  struct Row {
    Operation operation = Operation::Load;
    Source source = Source::Constant;
    bool mayBeNegative = false;  // of a name or an answer: where a sign reads as one
    std::uint8_t answer = 0;     // which of them
    double number = 0;
    NameForm name = {};
  };

  static constexpr std::size_t kMostLevels = 8;

  static bool ReadWhole(VariableStore& store, const Row& row, const Answers& answers, std::int64_t& value);
  static bool ReadFloat(VariableStore& store, RoundingMemo& memo, const Row& row, const Answers& answers,
                        double& value);

  std::vector<Row> rows_;
  bool isWhole_ = true;
};

}  // namespace tessera
