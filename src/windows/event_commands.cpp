#include "windows/event_commands.h"

#include <algorithm>
#include <chrono>

#include "commands/arguments.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/window_model.h"

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

Value Aguarde(WindowModel& windows, const WordCall& call) {
  const Arguments arguments(call);
  const std::string mode = Upper(arguments.Raw("milissegundos"));
  windows.OnYield();
  if (mode == "EVENTOS") {
    call.run.host.events.AwaitEvents(milliseconds(0));
  } else if (mode == "CLIQUEBOTAO" || mode == "CLIQUEOBJETO") {
    AwaitText(call.run, windows.events.UltimoBotao);
  } else if (mode == "CLIQUEBOX") {
    AwaitText(call.run, windows.events.EventoBox);
  } else {
    // OPEN: a negative time is no wait, so that a program may subtract what has gone by already.
    call.run.host.events.AwaitEvents(
        milliseconds(std::max(arguments.Number("milissegundos").ToInteger(), 0)));
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

Value Evento(WindowModel& windows, const WordCall& call) {
  windows.CurrentForm().MoveFocus(nullptr);
  const std::string word = Upper(EvalText(call.run, Trim(call.text)).ToText());
  for (const PendingText& pending : kPendingTexts) {
    if (pending.word == word) return Quote(std::exchange(windows.events.*pending.text, {}));
  }
  // OPEN: a word that names no event has none pending.
  return Quote({});
}

Value TestaTecla(WindowModel& windows, const WordCall& call) {
  windows.CurrentForm().MoveFocus(nullptr);
  const Value argument = EvalNumber(call.run, call.text);
  const std::string key = Upper(argument.ToText());
  if (key == "?") return std::exchange(windows.events.LastKeyText, {});
  if (const std::string* named = windows.events.Keys.Named(key)) return Quote(*named);
  if (argument.IsNumeric()) return Quote(windows.events.Keys.OfCode(argument.ToInteger()));
  return Quote({});
}

Value TestaMouse(WindowModel& windows, const WordCall&) {
  return windows.events.MouseButtonsText;
}

Value CaptureJanela(WindowModel& windows, const WordCall&) {
  windows.events.WindowDragFlag = true;
  return {};
}

Value DescaptureJanela(WindowModel& windows, const WordCall&) {
  windows.events.WindowDragFlag = false;
  return {};
}

// The name of a timer's row: what stands between its first "_" and its first "(".
std::string_view TimerName(std::string_view row) {
  const Position start = Find(row, "_") + 1;
  return Mid(row, start, Find(row, "(") - start);
}

// OPEN: as a function it answers the period that the timer has now.
Value Temporizador(WindowModel&, const WordCall& call) {
  const Arguments arguments(call);
  const Position point = Find(arguments.Raw("ação"), ".");
  if (point == 0) return {};
  const std::string name = Upper(Left(arguments.Raw("ação"), point - 1));
  const std::string action = Upper(Mid(arguments.Raw("ação"), point + 1));
  if (action != "ATIVA" && action != "DESATIVA") return {};
  const std::int16_t period = action == "ATIVA" ? arguments.Number("centésimos").ToShort() : std::int16_t{0};
  RoutineTables& routines = call.run.program.routines;
  for (std::size_t row = 0; row < routines.TimerNames.size(); ++row) {
    if (Upper(TimerName(routines.TimerNames[row])) == name) routines.TimerIntervals[row] = period;
  }
  return std::int32_t{period};
}

constexpr RowOn<WindowModel> kRows[] = {
    {"Aguarde", Aguarde},
    {"Evento", Evento},
    {"TestaTecla", TestaTecla},
    {"TestaMouse", TestaMouse},
    {"CaptureJanela", CaptureJanela},
    {"DescaptureJanela", DescaptureJanela},
    {"Temporizador", Temporizador},
};

}  // namespace

void BindEventCommands(CommandTable& table, WindowModel& windows) {
  Bind(table, kRows, windows);
}

}  // namespace tessera
