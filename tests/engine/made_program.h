// Makes programs out of chance: every statement in a sub that runs several times, so that a failure ends one
// statement and each gets its form; expressions of all kinds, right and wrong, over variables, elements and
// results of functions of all types.
#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::test {

class MadeProgram {
 public:
  explicit MadeProgram(unsigned seed) : random_(seed) { Make(); }

  const std::string& text() const { return text_; }

 private:
  using Words = std::vector<std::string>;

  std::size_t Below(std::size_t count) { return random_() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  const std::string& AnyOf(const Words& words) { return words[Below(words.size())]; }

  std::string Blank() { return OneIn(4) ? "" : " "; }
  std::string Number();
  std::string Index();
  std::string Name();
  std::string Writable();
  std::string Literal();
  std::string Operand(int depth);
  std::string Arithmetic(int depth);
  std::string NumericCall(int depth);
  std::string TextCall();
  std::string ListOfCalls();
  std::string OwnCall();
  std::string SumOfCalls();
  std::string Term(int depth);
  std::string Condition();
  std::string Joined(const std::string& target);
  void Assignment(const std::string& indent);
  void Statement(const std::string& indent, int depth);
  void Block(const std::string& indent, int depth);
  void Function(int number);
  void Sub(int number);
  void Make();
  void Put(const std::string& line) { text_ += line + "\n"; }

  std::mt19937 random_;
  std::string text_;
  int loops_ = 0;     // names of loop counters
  int callable_ = 0;  // functions with lower numbers may be called
  Words locals_;      // of the function that is being made
  struct Signature {
    std::size_t parameters;
  };
  std::vector<Signature> functions_;
};

}  // namespace tessera::test
