// All words of the language, one row each: the one home of what they are called, how they are written and
// what must be known of them. Command tables, evaluators, the engine, checks and manuals are derived from
// these rows.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "language/word.h"

namespace tessera {

// The words that expressions are searched for, in the order of the search: a longer name stands before a name
// that it contains.
std::span<const Word> Words();

// The words of blocks and routines, which the statement loop knows.
std::span<const Word> StructureWords();

// A row by its name, blind to case; null for no word.
const Word* FindWord(std::string_view name);

// The names of `Words`, in their order.
std::vector<std::string> WordNames();

// The block that begins with one word and ends with the other; its alternative, where it has one.
struct BlockPair {
  std::string_view opening;
  std::string_view closing;
  std::string_view alternative;
};
std::span<const BlockPair> BlockPairs();

// True if an upper-cased text begins with a word that may begin a line and is none of `Words`.
bool BeginsWithBlockWord(std::string_view upperText);

// True if a statement begins or ends a routine. Case counts.
bool IsRoutineBoundary(std::string_view statement);

// True if somewhere in the text, in any case, a word of that trait stands in front of a "(".
bool HoldsCallOf(Trait trait, std::string_view text);

// True if the name is, in any case, one of the functions of numbers.
bool IsNumericFunction(std::string_view name);

}  // namespace tessera
