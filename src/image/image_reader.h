// Finds and reads the program inside an executable's bytes. Nothing runs yet, so damage is a result value.
#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include "image/packed_program.h"

namespace tessera {

enum class ImageProblem {
  CutFile,       // the file is shorter than it tells
  ChangedFile,   // the file's check sum is that of other bytes
  NoProgram,     // no name in the file: it is the bare runtime
  NoPackage,     // a name, but not both markers around a package
  CutPackage,    // a field without its separator
  DamagedField,  // a field whose count is not its length, or whose key does not exist
};

// All of the reading: the seal where there is one, name, package, split.
std::variant<PackedProgram, ImageProblem> ReadProgram(std::string_view image);

// The package between the markers of the program called `name`, given in any case. Nothing where a marker is
// missing.
std::optional<std::string_view> ReadProgramFromImage(std::string_view image, std::string_view name);

struct SplitEditors {
  EditorTexts EditorText;
  EditorNames EditorName;
};

// Decodes the editors of a package. What follows a seventh source is ignored.
std::variant<SplitEditors, ImageProblem> SplitPackage(std::string_view package);

// What the raw sources, comments included, ask of the main window.
struct ProjectStyle {
  std::string_view ProjectStyleWord;  // "JanelaTransparente", "SemBorda" or empty
  bool MessageHookFlag = false;       // "API Biblioteca" occurs; the first of the three words ends the scan
};

ProjectStyle ScanProjectStyle(const EditorTexts& editors);

}  // namespace tessera
