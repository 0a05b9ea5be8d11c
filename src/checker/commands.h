// The language's commands as statements: their forms, keywords and suffixes, and the objects that they name.
#pragma once

#include "checker/expression.h"

namespace tessera::check {

// A statement whose first token is that word of the language.
void CheckCommand(Context& context, const Word& word);

// The first argument of a call that asks an object: `Box(Lista.TotalItens)`. False where the call asks none.
bool CheckValueOfObject(Context& context, const Word& word, const Token& name, Tokens list);

// The pattern of `Formata`.
void CheckFormat(Context& context, Tokens format);

// The object "T1" of "T1.Txt", which a statement or call of that family's word names.
void CheckObject(Context& context, const Word& word, const Token& name, std::string_view object);

}  // namespace tessera::check
