// All that a program's start needs to know, wherever the program came from.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "image/packed_program.h"

namespace tessera {

struct ProgramStart {
  PackedProgram program;
  std::filesystem::path folder;  // absolute; `PastaPrograma`, `PastaTS` and the side file's place
  std::string commandLine;       // program text; `LinhaComando`
  bool isFinished = false;       // the program stands in the running executable itself
  std::string printer = {};      // UTF-8: a queue, or a path ending in ".pdf"; empty for the system's own
  // UTF-8, what takes the place of devices: a file of sound, and a picture or a folder of them; absolute, or
  // empty.
  std::string microphone = {};
  std::string camera = {};
  bool plain = false;         // every rule by the text alone, without the forms beside it
  bool scripted = false;      // an event script on the standard input leads its windows
  bool tellsHidden = false;   // failures that end a routine in silence are told as well
  bool answerCancel = false;  // in a script, boxes of OK and Cancel are answered Cancel
  // Where the script of what a person does is written, in UTF-8 and absolute; empty where none is.
  std::string recorded = {};
  // Where each editor was read from, as a person names it, in UTF-8; empty for a finished program.
  std::array<std::string, kEditors> files = {};
};

// The arguments of a process (UTF-8) as one command line in program text: joined by blanks, an argument with
// a blank in double quotes. A line that is one quoted argument loses its quotes.
std::string CommandLineOf(const std::vector<std::string>& arguments);

// The "file:line" of a text that holds "Editor: n Linha: m"; empty where it holds none, or the file isn't
// known.
std::string FilePlace(const std::array<std::string, kEditors>& files, std::string_view text);

// Whether a text speaks of the word (in upper case) at all, be it in a comment.
bool SpeaksOf(std::string_view word, const EditorTexts& editors);

// A folder's path as program text, without a final separator.
std::string FolderText(const std::filesystem::path& folder);

}  // namespace tessera
