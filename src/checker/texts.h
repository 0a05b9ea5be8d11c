// Rules on a statement's bare text: quotes, parentheses, signs, and words that the language finds inside
// texts and names.
#pragma once

#include "checker/context.h"

namespace tessera::check {

// False where the text is so broken that no other rule can read it.
bool CheckText(Context& context);

// A tab hides the first word of its line; told once an editor.
void CheckTabs(Context& context);

}  // namespace tessera::check
