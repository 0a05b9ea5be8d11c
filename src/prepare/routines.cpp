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

// The pass on its way: the tables, and the place that it looks at.
struct Pass {
  RoutineTables& tables;
  const std::function<void(std::string_view)>& showCritical;
  Position place = 1;

  void Tell(std::string_view message) {
    tables.toldPlaces.push_back(place);
    showCritical(message);
  }
};

// Walks the routines of one kind; `list` enters one into its tables and returns its name.
// KEPT: the first occurrence of the opening word that is no statement ends the walk, silently
// (Routines.AMentionInALiteralEndsThePass).
template <typename List>
void WalkRoutines(std::string_view text, const RoutineWords& words, Pass& pass, List list) {
  for (Position hit = Find(text, words.opening); hit != 0;) {
    if (hit <= 4 || !IsMark(text, hit - 4)) return;
    pass.place = hit;
    const std::string name = list(hit);
    const Position next = FindEnd(text, words, hit);
    if (next == 0) {
      pass.Tell(std::string(words.unclosed) + name);
      return;
    }
    hit = Find(text, words.opening, next);
  }
}

void ListFunctions(std::string_view text, Pass& pass) {
  constexpr RoutineWords kWords{"FUNCAO ", "FUNCAO", "FIMFUNCAO", 5,
                                "Funcao sem o respectivo comando FimFuncao: "};
  const std::string upper = Upper(text);
  WalkRoutines(upper, kWords, pass, [&](Position hit) {
    const Position open = FindOrFail(text, "(", hit);
    const Position close = FindOrFail(text, ")", hit);
    const Position lineEnd = FindOrFail(text, "\r", close);
    const std::string_view name = Between(text, hit + kWords.opening.size(), open);
    pass.tables.FunctionTypes.emplace_back(Trim(Between(text, close + 1, lineEnd)));
    pass.tables.FunctionNames.emplace_back(name);
    return pass.tables.FunctionNames.back();
  });
}

void ListSubs(std::string_view text, Pass& pass) {
  constexpr RoutineWords kWords{"Sub ", "Sub", "FimSub", 2, "Sub sem o respectivo comando FimSub: "};
  WalkRoutines(text, kWords, pass, [&](Position hit) {
    const Position close = FindOrFail(text, ")", hit);
    pass.tables.SubNames.emplace_back(Between(text, hit + kWords.opening.size(), close + 1));
    return pass.tables.SubNames.back();
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
void ListTimers(std::string_view text, Pass& pass) {
  constexpr std::string_view kPrefix = "Temporizador_";
  for (Position hit = Find(text, kPrefix); hit != 0;) {
    pass.place = hit;
    pass.tables.HasTimersFlag = true;
    const Position close = FindOrFail(text, ")", hit);
    const Position open = FindOrFail(text, "(", hit);
    const std::string_view name = Between(text, hit, close + 1);
    pass.tables.TimerIntervals.push_back(IntervalOf(Between(text, open + 1, close)));
    pass.tables.TimerNames.emplace_back(name);
    hit = Find(text, kPrefix, open);
  }
}

}  // namespace

RoutineTables BuildRoutineTables(std::string_view text,
                                 const std::function<void(std::string_view)>& showCritical) {
  RoutineTables tables;
  Pass pass{tables, showCritical};
  const auto failure = Guard([&] {
    ListFunctions(text, pass);
    ListSubs(text, pass);
    ListTimers(text, pass);
  });
  if (failure) {
    pass.Tell(
        "Erro na criação de função ou sub-rotina!\r\r"
        "-Você esqueceu de colocar parênteses ao declarar alguma função ou sub-rotina?\r"
        "-Você colocou alguma palavra reservada do TS no nome de alguma função ou sub-rotina?"_w);
  }
  return tables;
}

}  // namespace tessera
