#include "runtime/program_start.h"

#include <algorithm>

#include "text/code_page.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/eval.h"

namespace tessera {

std::string CommandLineOf(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line.push_back(' ');
    const bool quoted = argument.empty() || argument.find(' ') != std::string::npos;
    line += quoted ? Quote(argument) : argument;
  }
  line = FromUtf8Lossy(line);
  // OPEN: quotes are taken off only where they enclose the whole line and stand nowhere else in it; a line
  // with quotes around a part keeps them all, also at its ends.
  const bool enclosed = line.size() > 1 && line.front() == '"' && line.back() == '"' &&
                        std::count(line.begin(), line.end(), '"') == 2;
  return enclosed ? std::string(Unquote(line)) : line;
}

bool SpeaksOf(std::string_view word, const EditorTexts& editors) {
  return std::any_of(editors.begin(), editors.end(),
                     [word](const std::string& text) { return Contains(Upper(text), word); });
}

std::string FolderText(const std::filesystem::path& folder) {
  return FromUtf8Lossy(folder.string());
}

std::string FilePlace(const std::array<std::string, kEditors>& files, std::string_view text) {
  constexpr std::string_view kEditorWord = "Editor: ";
  constexpr std::string_view kLineWord = " Linha: ";
  const Position at = Find(text, kEditorWord);
  if (at == 0) return {};
  const std::string_view rest = Mid(text, at + kEditorWord.size());
  const Position line = Find(rest, kLineWord);
  if (line == 0) return {};
  const auto editor = static_cast<std::size_t>(LeadingNumber(Left(rest, line - 1)));
  if (editor >= files.size() || files[editor].empty()) return {};
  return files[editor] + ":" +
         std::to_string(static_cast<int>(LeadingNumber(Mid(rest, line + kLineWord.size()))));
}

}  // namespace tessera
