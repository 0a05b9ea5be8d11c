// The checker: reads a program's sources and tells what is wrong with them, without running anything. The
// words and rules of the language come from its own tables; rules.h lists what is looked for.
//
// Findings are in the order of editors and lines, with the sorts that a rule silences in a comment left out.
// Sources are program text: Windows-1252, lines ended by CR LF.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "checker/finding.h"
#include "platform/editors.h"

namespace tessera::check {

// A program that is being written: an editor that changes is read again by itself.
class Program {
 public:
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Takes an editor's text; nothing is done where it is the one that is known.
  void SetEditor(std::size_t editor, std::string_view text);

  std::vector<Finding> FindingsOf(std::size_t editor);
  std::vector<Finding> Findings();

 private:
  struct Reading;

  void TellRefusal(std::vector<Finding>& findings) const;
  std::vector<Finding> Look(const std::vector<std::size_t>& editors);

  std::array<std::unique_ptr<Reading>, kEditorPlaces> readings_;
};

// All findings of a program.
std::vector<Finding> Check(const EditorTexts& editors);

// True if the program can't start, or would be refused, for one of them.
bool HasError(const std::vector<Finding>& findings);

}  // namespace tessera::check
