#include "platform/desktop_entry.h"

#include <string_view>

namespace tessera {

namespace {

// A value of an entry: one line.
std::string EntryText(std::string_view text) {
  std::string value;
  for (const char c : text) {
    if (c == '\\') {
      value += "\\\\";
    } else if (c == '\n' || c == '\r') {
      value += ' ';
    } else {
      value += c;
    }
  }
  return value;
}

// A word of a command, quoted for the desktop, which reads "%" as a place to fill.
std::string QuotedWord(std::string_view word) {
  std::string quoted = "\"";
  for (const char c : word) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += '\\';
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

std::string DesktopEntryText(const DesktopEntry& entry) {
  std::string line;
  for (const std::string& word : entry.command) line += (line.empty() ? "" : " ") + QuotedWord(word);
  std::string text = "[Desktop Entry]\nType=Application\nName=" + EntryText(entry.name) +
                     "\nExec=" + EntryText(line) + "\nPath=" + EntryText(entry.folder) + "\n";
  if (!entry.icon.empty()) text += "Icon=" + EntryText(entry.icon) + "\n";
  if (entry.isForMenu) text += "Terminal=false\nCategories=Utility;\n";
  return text;
}

}  // namespace tessera
