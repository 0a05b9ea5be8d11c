// The rewriting of a function's text for one call: every parameter and local gets a name of its own.
#pragma once

#include <string>
#include <string_view>

namespace tessera {

// Replaces `oldName` in `body` where "(", a blank or CR stands before it and ",", ")", a blank or CR behind
// it. Case counts; literals are not spared.
void RenameInBody(std::string& body, std::string_view oldName, std::string_view newName);

}  // namespace tessera
