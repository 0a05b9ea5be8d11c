// Writes a program's image: what a copy of the runtime gets behind its own bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "image/packed_program.h"
#include "platform/host.h"

namespace tessera {

// Markers and package of `program`. Editors behind the first empty place are still written: an editor without
// text keeps its name. Nothing where some field has no encoding without a separator or a marker in it.
std::optional<std::string> WriteProgramImage(const PackedProgram& program, Random& random);

}  // namespace tessera
