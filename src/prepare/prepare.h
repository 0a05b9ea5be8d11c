// Source preparation: the editors' text becomes `ProgramText`, one tagged text that the run searches in.
// This room never runs anything. Stages: tagging.h, linking.h, routines.h.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "prepare/prepared_text.h"
#include "prepare/routines.h"

namespace tessera {

inline constexpr std::size_t kEditorPlaces = 11;  // of which only kEditors are ever filled
inline constexpr std::size_t kEditors = 7;        // editor 0 and six further ones

// Source of each editor in the code page; an empty text is no editor.
using EditorTexts = std::array<std::string, kEditorPlaces>;

struct PreparedProgram {
  std::shared_ptr<const PreparedText> ProgramText;
  RoutineTables routines;
};

// All stages in their order. A message of the routine pass goes to `showCritical`; the program stays usable.
PreparedProgram PrepareProgram(const EditorTexts& editors,
                               const std::function<void(std::string_view)>& showCritical);

}  // namespace tessera
