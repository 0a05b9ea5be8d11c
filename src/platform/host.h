// What every room may ask of the outside: boxes, input, event dispatch, timers, the clock and chance.
// Two hosts implement it: one with windows, one in memory. All texts are program text (Windows-1252).
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {

class FileStore;

enum class BoxIcon { None, Critical, Warning, Question, Information };
enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxAnswer { Ok, Cancel, Yes, No };

struct Box {
  std::string text;
  std::string title;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
  BoxAnswer defaultAnswer = BoxAnswer::Ok;
};

// The input form of `EntraTexto`: caption, the prompt above the field, the field's first content.
struct TextInput {
  std::string caption;
  std::string prompt;
  std::string initial;
};

enum class InputEnd { Confirmed, Cancelled, ClosedByFrame };

struct TextInputAnswer {
  InputEnd end;
  std::string text;  // what the field held; only read when confirmed
};

// The file dialog of `CaixaDialogo`. `pattern` names files, as "*.txt;*.csv".
struct FileRequest {
  bool save = false;
  std::string title;
  std::string description;
  std::string pattern;
  std::string proposed;
};

struct ChosenFont {
  std::string name;
  double size = 0;  // points
  bool bold = false;
  bool italic = false;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Shows the box modally; events of all windows and timers go on below it.
  virtual BoxAnswer ShowBox(const Box& box) = 0;
  virtual TextInputAnswer AskText(const TextInput& input) = 0;

  // The dialogs of the desktop, modal too; nothing is Cancel.
  virtual std::optional<std::string> AskFile(const FileRequest& request) = 0;
  // Red in the low byte.
  virtual std::optional<std::int32_t> AskColour(std::string_view title) = 0;
  virtual std::optional<ChosenFont> AskFont(std::string_view title) = 0;
  // The printer's name.
  virtual std::optional<std::string> AskPrinter(std::string_view title) = 0;
};

// A timer ticks from its making to its end. A tick that yields lets the next one in, on top of it.
class Timer {
 public:
  virtual ~Timer() = default;
};

// What brings events from outside of the process, as a line to another program does. A host watches the
// descriptors, and asks for the events inside its dispatches.
class EventSource {
 public:
  virtual ~EventSource() = default;

  enum class Delivered { Nothing, Event, Arrival };
  // Runs what has happened first, and tells of what kind it was. What arrives takes the place of what came
  // before, so that a step of a dispatch takes one arrival at most.
  virtual Delivered DeliverNext() = 0;
  // Can be read while an event waits.
  virtual int EventDescriptor() const = 0;
  // Whether an event can come at all.
  virtual bool IsOpen() const = 0;

  // Sends on what waits to be sent, which is no event and needs no dispatch.
  virtual void SendWaiting() = 0;
  // Can be read while some of it can be sent.
  virtual int SendDescriptor() const = 0;
};

class EventDispatch {
 public:
  virtual ~EventDispatch() = default;

  // Runs what is pending and returns: the yield of a command that is no wait (`Escreva`, the record
  // commands).
  virtual void ProcessEvents() = 0;

  // One step of an `Aguarde`: sleeps, letting no event run, then runs the events of that time. The console
  // host delivers one event line. False when no event can come any more.
  virtual bool AwaitEvents(std::chrono::milliseconds sleep) = 0;

  // One step of a wait that ends with an event and with no time: rests until something happens, then runs it.
  // The console host delivers one event line. False when no event can come any more.
  virtual bool AwaitNextEvents() = 0;

  // Sleeps, letting no event run.
  virtual void Pause(std::chrono::milliseconds time) = 0;

  // The breath of a program that computes on, taken every few hundred statements: shows what was drawn and
  // waits for the screen. Lets no event run.
  virtual void ShowDrawn() {}

  // Lets `act` run inside a coming dispatch, behind all that was posted before. From any thread; a host that
  // rests wakes for it.
  virtual void Post(std::function<void()> act) = 0;

  // The events of this source come as well, until null takes its place.
  virtual void Watch(EventSource* /*source*/) {}

  // One step of a command's own wait for the outside: runs what is pending, and what the source has.
  virtual void ProcessWaiting() { ProcessEvents(); }

  // How long the run goes on, in the time of the timers: the script's where a script keeps it.
  virtual std::chrono::milliseconds DispatchTime() = 0;

  // Calls `tick` every `interval` until the timer is destroyed; ticks run inside a dispatch alone. A timer
  // without an interval ticks in every dispatch, in a script's own time too.
  virtual std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                            std::function<void()> tick) = 0;
};

using LocalTime = std::chrono::local_time<std::chrono::milliseconds>;

class Clock {
 public:
  virtual ~Clock() = default;
  // The wall clock of the machine's own time zone.
  virtual LocalTime Now() = 0;
};

class Random {
 public:
  virtual ~Random() = default;
  // A number of 0 <= x < 1.
  virtual double Next() = 0;
};

// References to the parts of one host; the host outlives every run on it.
struct Host {
  Dialogs& dialogs;
  EventDispatch& events;
  Clock& clock;
  Random& random;
  FileStore& files;
};

}  // namespace tessera
