// Calls: the functions of the language and of the program, and the arguments of both and of commands.
#pragma once

#include <span>

#include "checker/expression.h"

namespace tessera::check {

// A call in an expression: the name, and the tokens between its parentheses. `isAlone`: nothing else stands
// in the expression.
Type CheckCall(Context& context, const Token& name, Tokens arguments, const Sought& sought, bool isAlone);

// The arguments of a command or call against what the word takes. `signature` is the form that was chosen.
void CheckArguments(Context& context, const Word& word, const Signature& signature,
                    std::span<const Tokens> arguments, const Token& place);

// Tells a call with commas inside a list that the language cuts at its commas before the call is made.
// `outer` is the word of the language whose list it is, where that is a call; `outerIsUser` is a function of
// the program. True if one was told.
bool CheckCuts(Context& context, Tokens list, const Word* outer, bool outerIsUser, Place place);

// One argument against its kind.
void CheckArgument(Context& context, const Word& word, const Argument& argument, Tokens tokens);

}  // namespace tessera::check
