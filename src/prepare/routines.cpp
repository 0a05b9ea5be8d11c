#include "prepare/routines.h"

#include <limits>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// A search that the rules take for granted: nothing found ends the pass as a failure.
Position FindOrFail(std::string_view text, std::string_view sought, Position start) {
  const Position found = Find(text, sought, start);
  if (found == 0) FailArgument();
  return found;
}

// The characters from `begin` up to, not including, `end`.
std::string_view Between(std::string_view text, Position begin, Position end) {
  if (end < begin) FailArgument();
  return Mid(text, begin, end - begin);
}

bool IsMark(std::string_view text, Position position) {
  return CharAt(text, position) == '#';
}

using Tell = std::function<void(std::string_view)>;

struct RoutineWords {
  std::string_view opening;   // "Sub ", with its blank
  std::string_view word;      // "Sub"
  std::string_view closing;   // "FimSub"
  std::size_t step;           // how far the search goes on behind an occurrence
  std::string_view unclosed;  // message in front of the open routine's name
};

// Where the search for the next routine goes on behind the end of the one that opens at `hit`; 0 when it is
// not closed. `text` is searched with exact case.
Position FindEnd(std::string_view text, const RoutineWords& words, Position hit) {
  for (Position q = Find(text, words.word, hit + words.opening.size()); q != 0;
       q = Find(text, words.word, q + words.step)) {
    const bool atStatement = (q > 4 && IsMark(text, q - 4)) || (q > 7 && IsMark(text, q - 7));
    if (!atStatement) continue;
    if (Mid(text, q - 3, words.closing.size()) == words.closing) return q + words.step;
    if (Mid(text, q, words.opening.size()) == words.opening) return 0;
  }
  return 0;
}

// Walks the routines of one kind; `list` enters one into its tables and returns its name.
// KEPT: the first occurrence of the opening word that is no statement ends the walk, silently
// (Routines.AMentionInALiteralEndsThePass).
template <typename List>
void WalkRoutines(std::string_view text, const RoutineWords& words, const Tell& showCritical, List list) {
  for (Position hit = Find(text, words.opening); hit != 0;) {
    if (hit <= 4 || !IsMark(text, hit - 4)) return;
    const std::string name = list(hit);
    const Position next = FindEnd(text, words, hit);
    if (next == 0) {
      showCritical(std::string(words.unclosed) + name);
      return;
    }
    hit = Find(text, words.opening, next);
  }
}

void ListFunctions(std::string_view text, RoutineTables& tables, const Tell& showCritical) {
  constexpr RoutineWords kWords{"FUNCAO ", "FUNCAO", "FIMFUNCAO", 5,
                                "Funcao sem o respectivo comando FimFuncao: "};
  const std::string upper = Upper(text);
  WalkRoutines(upper, kWords, showCritical, [&](Position hit) {
    const Position open = FindOrFail(text, "(", hit);
    const Position close = FindOrFail(text, ")", hit);
    const Position lineEnd = FindOrFail(text, "\r", close);
    const std::string_view name = Between(text, hit + kWords.opening.size(), open);
    tables.FunctionTypes.emplace_back(Trim(Between(text, close + 1, lineEnd)));
    tables.FunctionNames.emplace_back(name);
    return tables.FunctionNames.back();
  });
}

void ListSubs(std::string_view text, RoutineTables& tables, const Tell& showCritical) {
  constexpr RoutineWords kWords{"Sub ", "Sub", "FimSub", 2, "Sub sem o respectivo comando FimSub: "};
  WalkRoutines(text, kWords, showCritical, [&](Position hit) {
    const Position close = FindOrFail(text, ")", hit);
    tables.SubNames.emplace_back(Between(text, hit + kWords.opening.size(), close + 1));
    return tables.SubNames.back();
  });
}

std::int16_t IntervalOf(std::string_view text) {
  const double ticks = RoundHalfEven(LeadingNumber(text));
  if (ticks > std::numeric_limits<std::int16_t>::max() || ticks < std::numeric_limits<std::int16_t>::min()) {
    FailOverflow();
  }
  return static_cast<std::int16_t>(ticks);
}

// KEPT: every mention counts, wherever it stands (Routines.EveryMentionOfATimerIsListed).
void ListTimers(std::string_view text, RoutineTables& tables) {
  constexpr std::string_view kPrefix = "Temporizador_";
  for (Position hit = Find(text, kPrefix); hit != 0;) {
    tables.HasTimersFlag = true;
    const Position close = FindOrFail(text, ")", hit);
    const Position open = FindOrFail(text, "(", hit);
    const std::string_view name = Between(text, hit, close + 1);
    tables.TimerIntervals.push_back(IntervalOf(Between(text, open + 1, close)));
    tables.TimerNames.emplace_back(name);
    hit = Find(text, kPrefix, open);
  }
}

}  // namespace

RoutineTables BuildRoutineTables(std::string_view text, const Tell& showCritical) {
  RoutineTables tables;
  const auto failure = Guard([&] {
    ListFunctions(text, tables, showCritical);
    ListSubs(text, tables, showCritical);
    ListTimers(text, tables);
  });
  if (failure) {
    showCritical(
        "Erro na criação de função ou sub-rotina!\r\r"
        "-Você esqueceu de colocar parênteses ao declarar alguma função ou sub-rotina?\r"
        "-Você colocou alguma palavra reservada do TS no nome de alguma função ou sub-rotina?"_w);
  }
  return tables;
}

}  // namespace tessera
