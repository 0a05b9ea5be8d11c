// A run-time failure: thrown where the system's rules say failure, caught at the guards that they name and
// nowhere else. Numbers are the classic BASIC ones.
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessera {

class RunFailure : public std::exception {
 public:
  RunFailure(long number, std::string_view description) : number_(number), description_(description) {}

  long number() const { return number_; }
  // In the program's code page.
  const std::string& description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  long number_;
  std::string description_;
};

// A failure by its number, with the platform's description.
[[noreturn]] void Fail(long number);

[[noreturn]] void FailArgument();   // 5
[[noreturn]] void FailOverflow();   // 6
[[noreturn]] void FailMemory();     // 7
[[noreturn]] void FailSubscript();  // 9
[[noreturn]] void FailDivision();   // 11
[[noreturn]] void FailType();       // 13
[[noreturn]] void FailStack();      // 28

// Runs `body`; the failure that ended it, if one did. Memory that the machine has not got is failure 7.
template <typename Body>
std::optional<RunFailure> Guard(Body&& body) {
  try {
    try {
      body();
      return std::nullopt;
    } catch (const std::bad_alloc&) {
      FailMemory();
    } catch (const std::length_error&) {
      FailMemory();
    }
  } catch (const RunFailure& failure) {
    return failure;
  }
}

}  // namespace tessera
