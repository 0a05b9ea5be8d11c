// For tests of one command at a time: what an expression gives, or the number
// of the failure that it ends in.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/failure.h"
#include "support/core_program.h"
#include "text/code_page.h"
#include "values/eval.h"

namespace tessera::test {

class LibraryProgram : public CoreProgram {
 public:
  using CoreProgram::CoreProgram;

  // The value of an expression written in UTF-8, in UTF-8, or "falha N".
  std::string Value(std::string_view expression) {
    std::string value;
    const auto failure = Guard([&] { value = ToUtf8(EvalNumber(run, FromSource(expression)).ToText()); });
    return failure ? "falha " + std::to_string(failure->number()) : value;
  }

  // What the handler of one command answers, its quotes included.
  std::string Answer(std::string_view name, std::string_view arguments) {
    std::string answer;
    const auto failure =
        Guard([&] { answer = ToUtf8(commands.CommandCall(name, FromSource(arguments)).ToText()); });
    return failure ? "falha " + std::to_string(failure->number()) : answer;
  }
};

}  // namespace tessera::test
