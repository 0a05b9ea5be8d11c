// The source units of a program, as the image carries them and preparation reads them.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace tessera {

inline constexpr std::size_t kEditorPlaces = 11;  // of which only kEditors are ever filled
inline constexpr std::size_t kEditors = 7;        // editor 0 and six further ones

// Source of each editor in the code page; an empty text is no editor.
using EditorTexts = std::array<std::string, kEditorPlaces>;

// Name of editor i at i - 1; editor 0 has none.
using EditorNames = std::array<std::string, kEditors>;

}  // namespace tessera
