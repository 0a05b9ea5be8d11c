// What a statement is by its first word, as its writer meant it: a block word in the wrong case, with an
// accent, in two words or from another language is still that block word, so that one slip is told once and
// not again at each block around it.
#pragma once

#include <cstdint>
#include <string_view>

#include "checker/source.h"

namespace tessera::check {

enum class Form : std::uint8_t {
  Other,  // an assignment, a command, a call, or nothing that the language knows
  Declaration,
  Se,
  CasoContrario,
  FimSe,
  Enquanto,
  Repita,
  VaPara,
  Label,
  Funcao,
  FimFuncao,
  Sub,
  FimSub,
  FimPrograma,
  FimJanela,
  Retorne,
  BdHeader,
  BdField,
  FimBD,
};

enum class Spelling : std::uint8_t {
  Right,
  Case,     // "se"
  Accent,   // "CasoContrário"
  Split,    // "Fim Se"
  Foreign,  // "Senao"
  Near,     // "Enquato"
  NoBlank,  // "Se(a = 1)"
};

struct FormedWord {
  Form form = Form::Other;
  Spelling spelling = Spelling::Right;
  std::uint8_t tokens = 1;  // that the word takes
};

// The statement's form by its tokens. A line of a `BD` block is told by who knows the block.
FormedWord ReadForm(Tokens tokens);

// The word of a form as the language writes it; empty for the forms without one.
std::string_view WordOf(Form form);

// True if the tokens assign to their first name: "a = 1", "v(i) = 2", "a++", "a += 3".
bool IsAssignment(Tokens tokens);

// A text in upper case without accents.
std::string Folded(std::string_view text);

}  // namespace tessera::check
