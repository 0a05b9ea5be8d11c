#include "checker/uses.h"

namespace tessera::check {

Uses ReadUses(const Source& source, const Outline& outline) {
  Uses uses;
  for (std::size_t i = 0; i < source.statements().size(); ++i) {
    const Form form = outline.forms[i].form;
    if (form == Form::Declaration || form == Form::Funcao || form == Form::Sub || form == Form::BdField)
      continue;
    const Tokens tokens = source.TokensOf(source.statements()[i]);
    const Token* target = nullptr;
    if (form == Form::Other && IsAssignment(tokens)) {
      target = tokens.data();
      Use& use = uses[std::string(target->upper)];
      ++use.writes;
      std::size_t next = 1;
      if (tokens[1].Is('(')) next = ClosingParen(tokens, 1) + 1;
      const bool isCall = next + 2 < tokens.size() && tokens[next].Is('=') && tokens[next + 1].IsName() &&
                          tokens[next + 2].Is('(') && tokens.back().Is(')');
      if (isCall) ++use.writesOfCalls;
    }
    for (const Token& token : tokens) {
      if (!token.IsName()) continue;
      // What only adds to itself is not read.
      if (target != nullptr && token.upper == target->upper) continue;
      ++uses[std::string(token.upper)].reads;
    }
  }
  return uses;
}

}  // namespace tessera::check
