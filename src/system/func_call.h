// `cFuncCall`: calls a function of a shared library that is named while the program runs. Nothing declares
// what the function takes: each argument's kind is worked out from its text. The function goes by the C
// calling rule of the system; it gets integers of 64 bits and addresses, and no numbers with a fraction.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "values/run.h"

namespace tessera {

class cFuncCall {
 public:
  // Texts beyond these have no buffer: their parameter word is 0.
  static constexpr std::size_t kMostTexts = 10;
  // A function may write this many bytes at least into the buffer of a text.
  static constexpr std::size_t kLeastBuffer = std::size_t{1} << 16;

  explicit cFuncCall(Run& run) : run_(run) {}
  ~cFuncCall() { Free(); }
  cFuncCall(const cFuncCall&) = delete;
  cFuncCall& operator=(const cFuncCall&) = delete;

  // Frees the library in use and loads the one of that name; a box where there is none (library_search.h).
  void SetLibraryName(std::string_view name);
  // Looks the function up, in the case in which it is written; a box where the library lacks it.
  void SetFunctionName(std::string_view name);

  // Calls the function and gives its result, the low 32 bits with their sign; a box and 0 where none is set.
  // A text with a "$" in front is a text, another one that is a number is an integer, and all others are
  // texts. What the function leaves in the buffers of texts takes their places in `ApiArguments`. Failure 6
  // for a number beyond 64 bits. A function that crashes ends the process.
  std::int32_t CallFunction(std::vector<std::string>& ApiArguments);

 private:
  void Free();
  void ShowProblem(std::string_view text);
  std::string CrashMessage(std::string_view function) const;

  Run& run_;
  std::string LibraryName_;
  std::string FunctionName_;
  void* module_ = nullptr;
  void* function_ = nullptr;
};

}  // namespace tessera
