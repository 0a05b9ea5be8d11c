// FAST: the right side of an assignment whose line never changes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"
#include "engine/line.h"
#include "values/calls_in_arithmetic.h"
#include "values/name_form.h"
#include "values/run.h"
#include "values/term_form.h"

namespace tessera {

class AssignmentForm {
 public:
  AssignmentForm(Run& run, const Line& line);

  // The same as `Assign` where a whole number goes into a variable of whole numbers and symbols tell of both;
  // else nothing, and false.
  bool AssignWhole(Engine& engine, VariableStore& store, const NameForm& target) const {
    if (kind_ != Kind::Term) return false;
    std::int32_t* integer = target.Integer(store);
    std::int64_t whole = 0;
    if (integer == nullptr || !term_.ReadWhole(store, whole) || !PutWhole(*integer, whole)) return false;
    engine.TextExpressionFlag = false;
    return true;
  }

  // What `AssignStatement` does for the variable `target`, named `name`, which is declared.
  void Assign(Engine& engine, Run& run, const NameForm& target, std::string_view name) const;

 private:
  enum class Kind : std::uint8_t { Plain, Term, Call, NestedCall, CallInside, Joined };

  // One term between two " & ".
  struct Part {
    std::string_view text;
    bool isLiteral = false;
    NameForm name;
    std::unique_ptr<const CallForm> call;  // where the text has one: its answer is all that counts
  };

  void ReadTerm(Run& run);
  void ReadJoined(Run& run);
  bool AssignTerm(Run& run, const NameForm& target) const;
  void AssignCall(Engine& engine, Run& run, const NameForm& target, std::string_view name) const;
  void AssignNested(Engine& engine, Run& run, const NameForm& target, std::string_view name) const;
  void AssignAround(Engine& engine, Run& run, const NameForm& target, std::string_view name) const;
  bool AppendJoined(Run& run, const NameForm& target) const;
  void Join(Run& run, std::string& joined) const;
  static bool IsReady(Run& run, const Part& part);
  static std::string ReadyText(Run& run, const Part& part);

  Kind kind_ = Kind::Plain;
  RightSide right_;
  TermForm term_;
  std::unique_ptr<const CallForm> call_;  // of a function of the program
  std::optional<CallsInArithmetic> inside_;
  std::vector<Part> parts_;
};

}  // namespace tessera
