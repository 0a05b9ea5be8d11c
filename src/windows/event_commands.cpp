#include "windows/event_commands.h"

#include <algorithm>
#include <chrono>

#include "commands/arguments.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/window_command_row.h"

namespace tessera {

namespace {

using std::chrono::milliseconds;

// Waits until an event has written the pending text. Without an end of its own: where no event can come any
// more the main window closes.
void AwaitText(Run& run, std::string& pending) {
  pending.clear();
  while (pending.empty()) {
    if (!run.host.events.AwaitNextEvents()) run.doors.UnloadMainWindow();
  }
  run.variables.VarWrite("Retorno", pending, true);
}

Value Aguarde(Run& run, WindowModel& windows, std::string_view arguments) {
  const Arguments parts(run, arguments, kTwoArguments);
  const std::string mode = Upper(parts.Raw(0));
  windows.OnYield();
  if (mode == "EVENTOS") {
    run.host.events.AwaitEvents(milliseconds(0));
  } else if (mode == "CLIQUEBOTAO" || mode == "CLIQUEOBJETO") {
    AwaitText(run, windows.events.UltimoBotao);
  } else if (mode == "CLIQUEBOX") {
    AwaitText(run, windows.events.EventoBox);
  } else {
    // OPEN: a negative time is no wait, so that a program may subtract what has gone by already.
    run.host.events.AwaitEvents(milliseconds(std::max(parts.Number(0).ToInteger(), 0)));
  }
  return {};
}

struct PendingText {
  std::string_view word;
  std::string EventState::*text;
};

constexpr PendingText kPendingTexts[] = {
    {"TECLADO", &EventState::EventoTeclado}, {"CLIQUE", &EventState::EventoClique},
    {"REDIM", &EventState::EventoRedim},     {"BOX", &EventState::EventoBoxAlterado},
    {"GIFANIMADO", &EventState::EventoGif},
};

Value Evento(Run& run, WindowModel& windows, std::string_view arguments) {
  windows.CurrentForm->MoveFocus(nullptr);
  const std::string word = Upper(EvalText(run, Trim(arguments)).ToText());
  for (const PendingText& pending : kPendingTexts) {
    if (pending.word == word) return Quote(std::exchange(windows.events.*pending.text, {}));
  }
  // OPEN: a word that names no event has none pending.
  return Quote({});
}

Value TestaTecla(Run& run, WindowModel& windows, std::string_view arguments) {
  windows.CurrentForm->MoveFocus(nullptr);
  const Value argument = EvalNumber(run, arguments);
  const std::string key = Upper(argument.ToText());
  if (key == "?") return std::exchange(windows.events.LastKeyText, {});
  if (const std::string* named = windows.events.Keys.Named(key)) return Quote(*named);
  if (argument.IsNumeric()) return Quote(windows.events.Keys.OfCode(argument.ToInteger()));
  return Quote({});
}

Value TestaMouse(Run&, WindowModel& windows, std::string_view) {
  return windows.events.MouseButtonsText;
}

Value CaptureJanela(Run&, WindowModel& windows, std::string_view) {
  windows.events.WindowDragFlag = true;
  return {};
}

Value DescaptureJanela(Run&, WindowModel& windows, std::string_view) {
  windows.events.WindowDragFlag = false;
  return {};
}

// The name of a timer's row: what stands between its first "_" and its first "(".
std::string_view TimerName(std::string_view row) {
  const Position start = Find(row, "_") + 1;
  return Mid(row, start, Find(row, "(") - start);
}

// OPEN: as a function it answers the period that the timer has now.
Value Temporizador(Run& run, WindowModel&, std::string_view arguments) {
  const Arguments parts(run, arguments, kTwoArguments);
  const Position point = Find(parts.Raw(0), ".");
  if (point == 0) return {};
  const std::string name = Upper(Left(parts.Raw(0), point - 1));
  const std::string action = Upper(Mid(parts.Raw(0), point + 1));
  if (action != "ATIVA" && action != "DESATIVA") return {};
  const std::int16_t period = action == "ATIVA" ? parts.Number(1).ToShort() : std::int16_t{0};
  RoutineTables& routines = run.program.routines;
  for (std::size_t row = 0; row < routines.TimerNames.size(); ++row) {
    if (Upper(TimerName(routines.TimerNames[row])) == name) routines.TimerIntervals[row] = period;
  }
  return std::int32_t{period};
}

constexpr WindowCommandRow kRows[] = {
    {"AGUARDE", Aguarde},
    {"EVENTO", Evento},
    {"TESTATECLA", TestaTecla},
    {"TESTAMOUSE", TestaMouse},
    {"CAPTUREJANELA", CaptureJanela},
    {"DESCAPTUREJANELA", DescaptureJanela},
    {"TEMPORIZADOR", Temporizador},
};

}  // namespace

void AddEventCommands(CommandTable& table, Run& run, WindowModel& windows) {
  AddRows(table, run, windows, kRows);
}

}  // namespace tessera
