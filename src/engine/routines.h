// The program's routines as calls find them: by the first place where the opening word and the name stand in
// the text, which is a prefix match. Found places are remembered; a program can't notice, since its text
// never changes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/engine.h"
#include "engine/line.h"

namespace tessera {

class Engine::Routines {
 public:
  explicit Routines(const Run& run) : run_(run) {}

  // Text of the first routine whose opening stands as `opening` + name, from the opening word to its closing
  // word and CR LF, without the head of its first line. Empty when there is no such opening.
  // Failure 5 when the routine is not closed.
  std::string_view FindFunction(std::string_view name);
  std::string_view FindSub(std::string_view name);

  // The sub's text ready to be walked; none when there is no such sub.
  const RunnableText* Sub(std::string_view name);

 private:
  struct Kind {
    Kind(std::string_view openingWord, std::string_view closingWord)
        : opening(openingWord), closing(closingWord) {}

    std::string_view opening;
    std::string_view closing;
    std::optional<std::vector<Position>> openings;  // every occurrence in the text, listed at the first call
    std::unordered_map<std::string, std::string_view> found;
  };

  std::string_view Find(Kind& kind, std::string_view name);

  const Run& run_;
  Kind functions_{"Funcao ", "FimFuncao"};
  Kind subs_{"Sub ", "FimSub"};
  std::unordered_map<std::string, std::unique_ptr<const RunnableText>> runnable_;
};

}  // namespace tessera
