// Makes programs out of chance that have a window with objects and a record file, and what a person does with
// them: the statements that other rooms answer, right and wrong, in subs that run several times.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>

namespace tessera::test {

class MadeApplication {
 public:
  explicit MadeApplication(unsigned seed) : random_(seed) { Make(); }

  const std::string& text() const { return text_; }
  const std::string& script() const { return script_; }

 private:
  std::size_t Below(std::size_t count) { return random_() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  std::string AnyOf(std::initializer_list<const char*> words) { return words.begin()[Below(words.size())]; }

  std::string Term();
  std::string Place();
  std::string Record();
  std::string Object();
  std::string Plain();
  void Statement(const std::string& indent);
  void Sub(const std::string& name);
  void Act();
  void Make();
  void Put(const std::string& line) { text_ += line + "\n"; }

  std::mt19937 random_;
  std::string text_;
  std::string script_;
};

}  // namespace tessera::test
