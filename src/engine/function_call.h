// The rewriting of a function's text for one call: every parameter and local gets a name of its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/one_based.h"

namespace tessera {

// Replaces `oldName` in `body` where "(", a blank or CR stands before it and ",", ")", a blank or CR behind
// it. Case counts; literals are not spared.
void RenameInBody(std::string& body, std::string_view oldName, std::string_view newName);

// The list of locals that the first statement of a body declares, and where the tag of the next one stands, 0
// where none does.
struct LocalsList {
  std::string_view text;
  Position next;
};
std::optional<LocalsList> DeclaredLocals(std::string_view body);

}  // namespace tessera
