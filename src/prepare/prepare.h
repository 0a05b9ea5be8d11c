// Source preparation: the editors' text becomes `ProgramText`, one tagged text that the run searches in.
// This room never runs anything. Stages: tagging.h, linking.h, routines.h.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/editors.h"
#include "prepare/prepared_text.h"
#include "prepare/routines.h"

namespace tessera {

struct PreparedProgram {
  std::shared_ptr<const PreparedText> ProgramText;
  RoutineTables routines;
};

// All stages in their order. A message of the routine pass goes to `showCritical`; the program stays usable.
PreparedProgram PrepareProgram(const EditorTexts& editors,
                               const std::function<void(std::string_view)>& showCritical);

}  // namespace tessera
