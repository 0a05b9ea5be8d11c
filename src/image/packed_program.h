// What an image carries: the program's name and its editors, decoded.
#pragma once

#include <cstddef>
#include <string>

#include "platform/editors.h"

namespace tessera {

struct PackedProgram {
  std::string name;  // in upper case, without extension
  EditorTexts EditorText;
  EditorNames EditorName;
};

}  // namespace tessera
