// FAST: bodies of functions that wait for their next call. A call's names hold the number of the call, so a
// body stands ready for each count of digits; at a call the digits in it are overwritten, and its lines keep
// their forms from call to call. The names are variables of a frame.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"
#include "engine/line.h"
#include "values/run.h"
#include "values/variable_store.h"

namespace tessera {

class FunctionBody {
 public:
  // The body of the function `name`, whose text is `found` from its opening word on, for calls with `digits`
  // digits. None for a function whose rules the plain way alone can follow: its lists of names are not plain
  // lists of names and types, its names could be met in the program by other means, or it is not well closed.
  static std::unique_ptr<FunctionBody> Make(const Run& run, std::string_view name, std::string_view found,
                                            std::size_t digits);

  std::size_t parameters() const { return parameters_; }
  VariableStore::Frame& frame() { return frame_; }
  const RunnableText& text() const { return *runnable_; }

  // Puts the number of a call into its names.
  void SetNumber(std::int32_t call);

  bool isRunning = false;

 private:
  explicit FunctionBody(std::string_view name) : frame_(name) {}

  VariableStore::Frame frame_;
  std::size_t parameters_ = 0;
  std::shared_ptr<PreparedText> prepared_;
  std::unique_ptr<const RunnableText> runnable_;
  std::vector<Position> numbers_;  // where a call's number stands
  std::int32_t number_ = 0;
};

// A function of the program with its bodies, by the count of a number's digits.
struct ReadyFunction {
  std::string name;
  std::vector<std::unique_ptr<FunctionBody>> bodies;
  FunctionBody* body = nullptr;  // for numbers below `end`; null where there can be none
  std::int64_t end = 0;
  int plainCalls = 0;  // calls of it that run by the rules: like calls share their names
};

class Engine::FunctionBodies {
 public:
  // The function of that name, whether the program has it or not.
  ReadyFunction& Of(std::string_view name);

  // Makes the body for a call of that number and all that have as many digits, if there can be one.
  static void Make(const Run& run, Routines& routines, ReadyFunction& function, std::int32_t call);

 private:
  std::map<std::string, ReadyFunction, std::less<>> functions_;
};

}  // namespace tessera
