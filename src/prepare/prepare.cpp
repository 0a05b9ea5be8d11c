#include "prepare/prepare.h"

#include "prepare/linking.h"
#include "prepare/tagging.h"

namespace tessera {

PreparedProgram PrepareProgram(const EditorTexts& editors,
                               const std::function<void(std::string_view)>& showCritical) {
  // Every program ends behind the text of editor 0; what stands in the others can only run when called.
  std::string text = editors[0] + "\r\nFimPrograma\r\n";
  text = TagSourceLines(text, 0);
  for (std::size_t i = 1; i < kEditors; ++i) {
    if (!editors[i].empty())
      text.append(kCrLf).append(TagSourceLines(editors[i], static_cast<std::int16_t>(i)));
  }
  text = NormaliseSource(text);
  text = NumberStatements(text);
  text = LinkEnquantoBlocks(LinkSeBlocks(text));
  PreparedProgram program;
  program.routines = BuildRoutineTables(text, showCritical);
  program.ProgramText = std::make_shared<const PreparedText>(std::move(text));
  return program;
}

}  // namespace tessera
