// What can be told of one statement from its text alone, told once: the engine's memory of a line. A program
// can't notice it, since the text of a running program never changes and the tables of its words and
// routines are fixed when it starts.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/line_form.h"
#include "prepare/prepared_text.h"
#include "values/conditions.h"
#include "values/run.h"

namespace tessera {

// Which rule of the statement loop settles the line, in the order in which the loop asks.
enum class Road {
  EndProgram,   // FimPrograma
  EndFunction,  // FimFuncao
  EndWindow,    // FimJanela
  Increment,    // x++
  Decrement,    // x--
  Add,          // x += e
  Subtract,     // x -= e
  NewWindow,    // NovaJanela
  Database,     // BD
  GoTo,         // VaPara
  Blocks,       // a bracket word, or none: the last road
};

struct Line;

// Where a search leads: `found` tells whether the sought word was there, `next` is the line to go on with,
// none where the text ends.
struct Jump {
  bool found = false;
  const Line* next = nullptr;
};

// A bracket word in a line: its depth as written, and the text of the condition that it may carry.
struct Bracket {
  std::string_view depth;
  std::string_view conditionText;
  mutable std::optional<Condition> condition;  // cut at first use, since the cutting can fail
  mutable std::optional<Jump> blockEnd;        // behind the FimSe of this depth
};

// The bracket words of a line, and where their searches lead: filled at first use, each by the search that
// the rules tell.
struct Blocks {
  std::optional<Bracket> enquanto, repita, se, fimSe, casoContrario;
  bool testsClick = false;  // a `Se` that asks for a click

  mutable std::optional<Jump> loopEnd;      // behind the Repita of an Enquanto
  mutable std::optional<Jump> loopStart;    // the Enquanto of a Repita
  mutable std::optional<Jump> alternative;  // behind the CasoContrario of a Se's own block
};

// The right side of an assignment.
struct RightSide {
  std::string_view text;
  bool isText = false;                   // holds one of the calls that make it text
  bool readsSql = false;                 // a plain read of a SQL field
  std::vector<std::string_view> joined;  // the terms between " & ", where there are any
};

// The right side of an assignment's line.
RightSide ReadRightSide(std::string_view line);

// How a line that no rule of the loop settles begins.
struct Opening {
  std::string_view word;  // from column 20 to the first blank
  std::string_view rest;  // behind the word and one blank
  bool declares = false;
  bool returns = false;
  bool callsSub = false;
  bool mayDispatch = false;                // a command, a label or a block word
  mutable std::optional<RightSide> right;  // read when the word turns out to be a variable
};

struct Line {
  mutable LineForm form;
  SourcePosition source;
  Road road = Road::Blocks;

  Position position = 0;  // of "&#"
  Position end = 0;       // of the CR LF behind it
  std::string_view text;  // head included
  std::int32_t number = 0;

  std::string_view variable;  // of the step and compound forms
  std::string_view expression;
  std::unique_ptr<const std::string> spacedExpression;  // where it differs from the line's text by a blank
  std::string_view label;                               // of VaPara, untrimmed
  std::unique_ptr<const Blocks> blocks;                 // none in a line without a "["
  Opening opening;

  // Filled at first use.
  mutable std::optional<const Line*> next;
  mutable std::optional<Jump> target;  // the line that holds the label
};

// A text that a loop walks, with its lines remembered.
class RunnableText {
 public:
  // `once` tells of a text that is made for one call: its lines get no forms, since its names are of that
  // call alone and would be remembered for ever.
  RunnableText(const Run& run, std::shared_ptr<const PreparedText> text, bool once = false);

  const PreparedText& text() const { return *text_; }
  bool isOnce() const { return once_; }

  // The line of the first statement; none in a text without one.
  const Line* First() const;
  // The line of the statement of that number at or behind `from`; none if there is none.
  const Line* FindStatement(std::int32_t number, Position from) const;
  // The line whose "&#" stands at `position`.
  const Line* LineAt(Position position) const;

  // The line behind `line`, and where its searches lead. Those of blocks want the bracket word in the line.
  const Line* Next(const Line& line) const;
  Jump LoopEnd(const Line& line) const;
  Jump LoopStart(const Line& line) const;
  Jump BlockEnd(const Line& line, const Bracket& bracket) const;
  Jump Alternative(const Line& line) const;
  Jump Target(const Line& line) const;

 private:
  Jump Behind(const Line& line, Position hit) const;

  const Run& run_;
  std::shared_ptr<const PreparedText> text_;
  bool once_;
  mutable std::unordered_map<Position, std::unique_ptr<const Line>> lines_;
  mutable std::optional<const Line*> first_;
};

}  // namespace tessera
