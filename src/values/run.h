// `Run` is one running program: its host, the flags and texts that everybody reads, the variable store, the
// prepared program, and the doors by which a low room calls a high one. A subsystem's own tables belong to
// that subsystem, not here. Two runs can live in one process and disagree about everything.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/binary_file.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/stack_limit.h"
#include "prepare/prepare.h"
#include "values/function_table.h"
#include "values/rounding_memo.h"
#include "values/value.h"
#include "values/variable_store.h"

namespace tessera {

struct ArgumentText;

// The doors: what the rules call upward for. `ProgramRun` and the rooms fill them before the program starts.
struct Doors {
  // One word of the language with its raw argument text; an unknown word gives the empty value.
  std::function<Value(std::string_view name, const ArgumentText& arguments)> CommandCall;
  // A function of the program.
  std::function<Value(std::string_view name, const ArgumentText& arguments)> CallFunction;
  // The window that a `NovaJanela` line speaks of; `arguments` is the line from column 31 on.
  std::function<void(std::string_view arguments)> NovaJanela;
  // Ends the main window, and with it the process: `FimJanela`.
  std::function<void()> UnloadMainWindow;
  // A `BD` block: the text, the 1-based position of the line's tag and of its CR LF, and the statement's
  // number; returns the number of the last statement that it consumed.
  std::function<std::int32_t(std::string_view text, std::size_t position, std::size_t lineEnd,
                             std::int32_t statement)>
      RunDatabaseBlock;
  // The field of a SQL table that a right side `SQL(base.tabela.campo)` reads; pieces in upper case. Nothing,
  // behind its box, where it can't be read.
  std::function<std::optional<Value>(std::string_view base, std::string_view table, std::string_view field)>
      SqlReadField;
};

// Where the running statement stands in the source, as its head tells.
struct SourcePosition {
  std::int32_t editor = 0;
  std::int32_t line = 0;  // as people count, from 1
};

struct Run {
  explicit Run(const Host& host, const StackLimit& stack = StackLimit());
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  Host host;
  StackLimit stack;
  Doors doors;

  // Each stops every statement loop at its next statement: the first by being false.
  bool RunningFlag = false;
  bool StopFlag = false;
  bool WindowCodeStopFlag = false;

  // Name of the program with ".TSC", its folder and the runtime's with a final backslash.
  std::string ProgramFileName;
  std::string ProgramFolderText;
  std::string RuntimeFolderText;

  // Where the program's file names lead.
  PathMapping paths;

  PreparedProgram program;
  VariableStore variables;
  RoundingMemo roundings;
  // Every rule by the text alone, without the forms beside it (FAST), for whoever doubts them.
  bool plain = false;
  // Replacing the calls of one text ends in failure 28 beyond so many of them.
  int mostReplacements = 100'000;
  FileNumbers fileNumbers;         // of every file that the program has open, whatever command opened it
  FunctionTable functionTable;     // the language's words
  FunctionTable programFunctions;  // names of the program's functions

  SourcePosition sourcePosition;
};

// Makes a prepared program the one that runs.
void InstallProgram(Run& run, PreparedProgram program);

// "Editor: n Linha: m" of the running statement.
std::string SourcePositionText(const Run& run);

// The program's name as boxes show it: `ProgramFileName` without its four-character extension.
std::string ProgramTitle(const Run& run);

// A box with the critical icon and OK.
void ShowCritical(Run& run, std::string_view text);

}  // namespace tessera
