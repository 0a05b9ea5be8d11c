// A step of the build: writes the colours of the language for the editors that people use, from the table of
// its words.
//
//   syntax_writer FOLDER    writes there  kate/tessera.xml, vim/syntax/tessera.vim, vim/ftdetect/tessera.vim,
//                           geany/filetypes.Tessera.conf and the extension vscode/
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "language/builtins.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// What an editor colours alike. A name with a "." is in as its first part alone.
struct Colours {
  Names blocks;    // of blocks and routines: these in their case alone
  Names commands;  // in any case, as all that follow
  Names types;
  Names variables;  // that every program has
};

Colours ColoursOfTheLanguage() {
  std::set<std::string> blocks = {"Var"};
  std::set<std::string> commands;
  std::set<std::string> variables;
  const auto firstPart = [](std::string_view name) { return std::string(name.substr(0, name.find('.'))); };
  for (const Word& word : StructureWords()) blocks.insert(firstPart(word.name));
  for (const Word& word : Words()) {
    if (!blocks.contains(firstPart(word.name))) commands.insert(firstPart(word.name));
  }
  for (const Builtin& builtin : Builtins()) {
    if (!commands.contains(firstPart(builtin.name))) variables.insert(firstPart(builtin.name));
  }
  return {.blocks = {blocks.begin(), blocks.end()},
          .commands = {commands.begin(), commands.end()},
          .types = {"Decimal", "Inteiro", "String"},
          .variables = {variables.begin(), variables.end()}};
}

std::string Joined(const Names& names, std::string_view between) {
  std::string text;
  for (const std::string& name : names) text.append(text.empty() ? "" : between).append(name);
  return text;
}

std::string KateItems(const Names& names) {
  std::string items;
  for (const std::string& name : names) items += "      <item>" + name + "</item>\n";
  return items;
}

// The format of the editors of the KDE desktop (KSyntaxHighlighting).
std::string Kate(const Colours& colours) {
  const auto list = [](const char* name, const Names& names) {
    return "    <list name=\"" + std::string(name) + "\">\n" + KateItems(names) + "    </list>\n";
  };
  const auto words = [](const char* named, const char* attribute, bool exact) {
    return "        <keyword attribute=\"" + std::string(attribute) + "\" context=\"#stay\" String=\"" +
           named + "\" insensitive=\"" + (exact ? "false" : "true") + "\"/>\n";
  };
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE language>\n"
         "<language name=\"Tessera\" version=\"1\" kateversion=\"5.0\" section=\"Sources\" "
         "extensions=\"*.tsc\"\n"
         "          mimetype=\"text/x-tessera\" casesensitive=\"false\" license=\"MIT\">\n  "
         "<highlighting>\n" +
         list("blocks", colours.blocks) + list("commands", colours.commands) + list("types", colours.types) +
         list("variables", colours.variables) +
         "    <contexts>\n      <context name=\"Normal\" attribute=\"Normal\" lineEndContext=\"#stay\">\n"
         "        <DetectSpaces/>\n"
         "        <DetectChar attribute=\"Comment\" context=\"Comment\" char=\"'\"/>\n"
         "        <DetectChar attribute=\"Text\" context=\"Text\" char=\"&quot;\"/>\n" +
         words("blocks", "Block", true) + words("types", "Type", false) +
         words("commands", "Command", false) + words("variables", "Variable", false) +
         "        <Float attribute=\"Number\" context=\"#stay\"/>\n"
         "        <Int attribute=\"Number\" context=\"#stay\"/>\n"
         "        <RegExpr attribute=\"Property\" context=\"#stay\" String=\"\\.[A-Za-z]\\w*\"/>\n"
         "        <DetectIdentifier/>\n      </context>\n"
         "      <context name=\"Comment\" attribute=\"Comment\" lineEndContext=\"#pop\"/>\n"
         "      <context name=\"Text\" attribute=\"Text\" lineEndContext=\"#pop\">\n"
         "        <DetectChar attribute=\"Text\" context=\"#pop\" char=\"&quot;\"/>\n      </context>\n"
         "    </contexts>\n    <itemDatas>\n"
         "      <itemData name=\"Normal\" defStyleNum=\"dsNormal\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Comment\" defStyleNum=\"dsComment\"/>\n"
         "      <itemData name=\"Text\" defStyleNum=\"dsString\"/>\n"
         "      <itemData name=\"Block\" defStyleNum=\"dsControlFlow\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Command\" defStyleNum=\"dsFunction\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Type\" defStyleNum=\"dsDataType\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Variable\" defStyleNum=\"dsBuiltIn\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Property\" defStyleNum=\"dsAttribute\" spellChecking=\"false\"/>\n"
         "      <itemData name=\"Number\" defStyleNum=\"dsDecVal\" spellChecking=\"false\"/>\n"
         "    </itemDatas>\n  </highlighting>\n  <general>\n    <comments>\n"
         "      <comment name=\"singleLine\" start=\"'\"/>\n    </comments>\n"
         "    <keywords casesensitive=\"0\"/>\n  </general>\n</language>\n";
}

// Vim reads long lines in any number; a word a line keeps them readable. "contained" and its like are words
// of its own, none of which the language has.
std::string Vim(const Colours& colours) {
  std::string text =
      "\" Colours of Tessera programs.\nif exists(\"b:current_syntax\")\n  finish\nendif\n\nsyn iskeyword "
      "@,48-57,_,192-255\n";
  const auto words = [&](const char* group, const char* casing, const Names& names) {
    text += std::string("syn case ") + casing + "\n";
    for (const std::string& name : names) text += std::string("syn keyword ") + group + " " + name + "\n";
  };
  words("tesseraBlock", "match", colours.blocks);
  words("tesseraType", "ignore", colours.types);
  words("tesseraCommand", "ignore", colours.commands);
  words("tesseraVariable", "ignore", colours.variables);
  text +=
      "syn match tesseraNumber \"\\<\\d\\+\\(\\.\\d\\+\\)\\=\\>\"\n"
      "syn match tesseraProperty \"\\.\\a\\w*\"\n"
      "syn match tesseraText +\"[^\"]*\"\\=+\n"
      "syn match tesseraComment +'.*$+\n\n"
      "hi def link tesseraBlock Statement\nhi def link tesseraType Type\nhi def link tesseraCommand "
      "Function\n"
      "hi def link tesseraVariable Identifier\nhi def link tesseraNumber Number\n"
      "hi def link tesseraProperty Special\nhi def link tesseraText String\nhi def link tesseraComment "
      "Comment\n\n"
      "let b:current_syntax = \"tessera\"\n";
  return text;
}

// Geany colours by a language that it knows; FreeBasic has these comments and texts, and words in any case.
std::string Geany(const Colours& colours) {
  const auto lower = [](const Names& names) { return Lower(Joined(names, " ")); };
  return "# Colours of Tessera programs.\n[styling=FreeBasic]\n\n[keywords]\nkeywords=" +
         lower(colours.blocks) + "\npreprocessor=" + lower(colours.types) +
         "\nuser1=" + lower(colours.commands) + "\nuser2=" + lower(colours.variables) +
         "\n\n[settings]\nlexer_filetype=FreeBasic\nextension=tsc\nmime_type=text/x-tessera\n"
         "comment_single='\n\n[build-menu]\nFT_00_LB=_Verificar\nFT_00_CM=tessera check \"%f\"\n"
         "EX_00_LB=_Executar\nEX_00_CM=tessera run \"%f\"\n";
}

nlohmann::ordered_json Grammar(const Colours& colours) {
  const auto words = [](const char* scope, const char* casing, const Names& names) {
    return nlohmann::ordered_json{{"name", scope},
                                  {"match", std::string(casing) + "\\b(" + Joined(names, "|") + ")\\b"}};
  };
  return {{"name", "Tessera"},
          {"scopeName", "source.tessera"},
          {"fileTypes", {"tsc"}},
          {"patterns",
           {{{"name", "comment.line.apostrophe.tessera"}, {"match", "'.*$"}},
            {{"name", "string.quoted.double.tessera"}, {"begin", "\""}, {"end", "\"|$"}},
            words("keyword.control.tessera", "", colours.blocks),
            words("storage.type.tessera", "(?i)", colours.types),
            words("support.function.tessera", "(?i)", colours.commands),
            words("variable.language.tessera", "(?i)", colours.variables),
            {{"name", "constant.numeric.tessera"}, {"match", "\\b\\d+(\\.\\d+)?\\b"}},
            {{"name", "entity.other.attribute-name.tessera"}, {"match", "\\.[A-Za-z]\\w*"}}}}};
}

nlohmann::ordered_json Extension() {
  return {{"name", "tessera"},
          {"displayName", "Tessera"},
          {"description", "Cores para programas Tessera"},
          {"version", "1.0.0"},
          {"publisher", "tessera"},
          {"license", "MIT"},
          {"engines", {{"vscode", "^1.50.0"}}},
          {"categories", {"Programming Languages"}},
          {"contributes",
           {{"languages",
             {{{"id", "tessera"},
               {"aliases", {"Tessera"}},
               {"extensions", {".tsc"}},
               {"configuration", "./language-configuration.json"}}}},
            {"grammars",
             {{{"language", "tessera"},
               {"scopeName", "source.tessera"},
               {"path", "./syntaxes/tessera.tmLanguage.json"}}}}}}};
}

nlohmann::ordered_json Configuration() {
  std::string opening;
  std::string closing;
  for (const BlockPair& pair : BlockPairs()) {
    opening.append(opening.empty() ? "" : "|").append(pair.opening);
    closing.append(closing.empty() ? "" : "|").append(pair.closing);
    if (!pair.alternative.empty()) {
      opening.append("|").append(pair.alternative);
      closing.append("|").append(pair.alternative);
    }
  }
  return {{"comments", {{"lineComment", "'"}}},
          {"brackets", {{"(", ")"}}},
          {"indentationRules",
           {{"increaseIndentPattern", "^\\s*(" + opening + "|Funcao|Sub)\\b"},
            {"decreaseIndentPattern", "^\\s*(" + closing + "|FimFuncao|FimSub)\\b"}}}};
}

bool Write(const fs::path& file, const std::string& text) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  std::ofstream stream(file, std::ios::binary);
  stream << text;
  stream.close();
  return !stream.fail();
}

bool WriteAll(const fs::path& folder) {
  const Colours colours = ColoursOfTheLanguage();
  return Write(folder / "kate/tessera.xml", Kate(colours)) &&
         Write(folder / "vim/syntax/tessera.vim", Vim(colours)) &&
         Write(folder / "vim/ftdetect/tessera.vim", "au BufRead,BufNewFile *.tsc setfiletype tessera\n") &&
         Write(folder / "geany/filetypes.Tessera.conf", Geany(colours)) &&
         Write(folder / "vscode/syntaxes/tessera.tmLanguage.json", Grammar(colours).dump(2) + "\n") &&
         Write(folder / "vscode/package.json", Extension().dump(2) + "\n") &&
         Write(folder / "vscode/language-configuration.json", Configuration().dump(2) + "\n");
}

}  // namespace
}  // namespace tessera

int main(int argc, char** argv) {
  if (argc == 2 && tessera::WriteAll(argv[1])) return 0;
  std::cerr << "syntax_writer FOLDER\n";
  return 1;
}
