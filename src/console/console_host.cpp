#include "console/console_host.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "commands/dialog_commands.h"
#include "commands/system_commands.h"
#include "console/memory_stage.h"
#include "console/recording.h"
#include "platform/termination.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/act_line.h"
#include "windows/form.h"
#include "windows/window_directory.h"

namespace tessera {

namespace {

constexpr ScreenSize kScreen = {.Width = TwipsOfPixels(1920), .Height = TwipsOfPixels(1080)};

std::string_view IconWord(BoxIcon icon) {
  constexpr std::array<std::string_view, 5> kWords = {"caixa", "critico", "aviso", "pergunta", "info"};
  return kWords[static_cast<std::size_t>(icon)];
}

// Program text for the terminal: line breaks inside become a line feed and two blanks.
std::string IndentedUtf8(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    if (text[i] == '\r' || text[i] == '\n') {
      lines += "\n  ";
    } else {
      lines += text[i];
    }
  }
  return ToUtf8(lines);
}

// A script's line has no room for more.
std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

// The line that answers an input form as the person did.
std::string LineOf(const TextInputAnswer& answer, const std::string& prompt) {
  switch (answer.end) {
    case InputEnd::Confirmed:
      return FirstLine(answer.text);
    case InputEnd::Cancelled:
      return std::string(kCancelledAnswer);
    case InputEnd::ClosedByFrame:
      break;
  }
  return FirstLine(prompt);
}

bool IsReadable(int descriptor) {
  pollfd wait{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&wait, 1, 0) > 0;
}

bool IsYes(std::string_view answer) {
  return EqualsIgnoringCase(Trim(answer), "s") || EqualsIgnoringCase(Trim(answer), "sim");
}

}  // namespace

ConsoleHost::ConsoleHost(const ConsoleStreams& streams, ConsoleOptions options)
    : out_(streams.out),
      err_(streams.err),
      input_(streams.in, streams.descriptor, streams.isTerminal),
      options_(std::move(options)),
      texts_(options_.paper, [this](std::string_view problem) { TellMissingPart(problem); }),
      memory_(options_.stage == nullptr ? std::make_unique<MemoryStage>(texts_) : nullptr),
      stage_(memory_ ? memory_.get() : options_.stage) {
  if (!memory_) input_.DoMeanwhile([this] { stage_->ShowChanges(); });
}

ConsoleHost::~ConsoleHost() = default;

std::unique_ptr<Form> ConsoleHost::NewMainForm(const Placement& place, FormEvents& events,
                                               const WindowDirectory& windows) {
  auto form = NewForm("Janela", place, events);
  mainForm_ = form.get();
  windows_ = &windows;
  return form;
}

std::unique_ptr<Form> ConsoleHost::NewForm(std::string_view name, const Placement& place,
                                           FormEvents& events) {
  return stage_->NewForm(name, place, events, *this);
}

void ConsoleHost::ServeModal(Form& form) {
  while (form.Visible()) {
    Dispatch();
    if (form.Visible() && !AwaitNextEvents()) form.Events().OnClose();
  }
}

PointerPlace ConsoleHost::Pointer() {
  const Form& form = InHand();
  return {PixelsOfTwips(form.Place().Left) + form.Pointer().x,
          PixelsOfTwips(form.Place().Top) + form.Pointer().y};
}

std::string ConsoleHost::SetVideoMode(const VideoMode&) {
  return std::string("o console não tem vídeo"_w);
}

ScreenSize ConsoleHost::ScreenExtent() {
  return kScreen;
}

std::vector<std::string> ConsoleHost::FontNames() {
  return {"Arial", "Courier New", "Times New Roman"};
}

void ConsoleHost::TellAbandonedRun(std::string_view position, std::string_view description) {
  TellFailure("falha", position, description);
}

void ConsoleHost::TellFailure(std::string_view what, std::string_view position,
                              std::string_view description) {
  TellError(std::string("[").append(what).append("] ").append(position).append(": ").append(
      IndentedUtf8(description)));
  TellPlace(position);
}

void ConsoleHost::OnPrinted(std::string_view text) {
  out_ << ToUtf8(text) << '\n';
  // A person reads along.
  if (input_.IsTerminal()) out_.flush();
}

// What was printed before stands before it, where both streams lead to one place.
void ConsoleHost::TellError(std::string_view utf8) {
  out_.flush();
  err_ << utf8 << std::endl;
}

void ConsoleHost::TellPlace(std::string_view text) {
  if (!options_.placeOf) return;
  const std::string place = options_.placeOf(text);
  if (!place.empty()) TellError("  em " + place);
}

void ConsoleHost::TellMissingPart(std::string_view problem) {
  ShowBox({.text = std::string(problem), .title = options_.programTitle, .icon = BoxIcon::Critical});
}

// Boxes and forms

// OPEN: a script has no line for a box of OK and Cancel: whoever writes it is offered what it will answer.
BoxAnswer ConsoleHost::ShowBox(const Box& box) {
  std::string line = "[";
  line += IconWord(box.icon);
  if (box.title != options_.programTitle) line.append(": ").append(ToUtf8(box.title));
  TellError(line.append("] ").append(IndentedUtf8(box.text)));
  TellPlace(box.text);
  if (box.buttons == BoxButtons::YesNo) return AnswerYesNo(box);
  if (Dialogs* person = Asked()) {
    Box told = box;
    told.buttons = BoxButtons::Ok;
    person->ShowBox(told);
  }
  return box.buttons == BoxButtons::OkCancel && options_.answerCancel ? BoxAnswer::Cancel : BoxAnswer::Ok;
}

BoxAnswer ConsoleHost::AnswerYesNo(const Box& box) {
  const auto answer =
      Answer([&](Dialogs& person) { return std::string(person.ShowBox(box) == BoxAnswer::Yes ? "s" : "n"); });
  if (!answer) return box.defaultAnswer;
  return IsYes(*answer) ? BoxAnswer::Yes : BoxAnswer::No;
}

TextInputAnswer ConsoleHost::AskText(const TextInput& input) {
  TellError("[entrada] " + IndentedUtf8(input.prompt));
  auto text = Answer([&](Dialogs& person) { return LineOf(person.AskText(input), input.prompt); });
  if (!text) return {InputEnd::Cancelled, {}};
  return {InputEnd::Confirmed, std::move(*text)};
}

// Who is asked while the script is written; null where it is there already.
Dialogs* ConsoleHost::Asked() const {
  return options_.recording == nullptr ? nullptr : &options_.recording->Author().Answers();
}

// The script's next line, which `ask` gets from the person who writes it.
template <typename Ask>
std::optional<std::string> ConsoleHost::Answer(Ask ask) {
  Dialogs* person = Asked();
  if (person == nullptr) return input_.NextLine();
  std::string answer = ask(*person);
  options_.recording->KeepAnswer(answer);
  return answer;
}

template <typename Ask>
std::optional<std::string> ConsoleHost::AskDialog(std::string_view mode, std::string_view title, Ask ask) {
  const std::string behind = title.empty() ? "" : " " + IndentedUtf8(title);
  TellError(std::string("[dialogo] ").append(mode).append(behind));
  auto answer = Answer([&](Dialogs& person) { return std::optional<std::string>(ask(person)).value_or(""); });
  if (!answer || answer->empty()) return std::nullopt;
  return answer;
}

std::optional<std::string> ConsoleHost::AskFile(const FileRequest& request) {
  return AskDialog(request.save ? "SALVAR" : "ABRIR", request.title,
                   [&](Dialogs& person) { return person.AskFile(request); });
}

// A line that is no number is no colour, and Cancel.
std::optional<std::int32_t> ConsoleHost::AskColour(std::string_view title) {
  const auto answer = AskDialog("COR", title, [&](Dialogs& person) {
    const auto colour = person.AskColour(title);
    return colour ? std::optional(NumberText(*colour)) : std::nullopt;
  });
  const auto number = answer ? WholeNumber(*answer) : std::nullopt;
  if (!number || std::abs(*number) > 0x7FFFFFFF) return std::nullopt;
  return static_cast<std::int32_t>(*number);
}

std::optional<ChosenFont> ConsoleHost::AskFont(std::string_view title) {
  const auto answer = AskDialog("FONTE", title, [&](Dialogs& person) {
    const auto font = person.AskFont(title);
    return font ? std::optional(FontRecord(*font)) : std::nullopt;
  });
  if (!answer) return std::nullopt;
  return FontOfRecord(*answer);
}

std::optional<std::string> ConsoleHost::AskPrinter(std::string_view title) {
  return AskDialog("IMPRESSORA", title, [&](Dialogs& person) { return person.AskPrinter(title); });
}

// Reports

void ConsoleHost::TellPage(std::string_view label) {
  TellError("[relatorio] " + ToUtf8(label));
}

void ConsoleHost::TellPrinted(std::string_view destination, int pages) {
  TellError(std::string("[impressora] ").append(destination).append(": ").append(std::to_string(pages)));
}

// Media

void ConsoleHost::TellPlaying(std::string_view file) {
  TellError("[som] " + ToUtf8(file));
}

void ConsoleHost::TellAddress(std::string_view address) {
  TellError("[navegador] " + ToUtf8(address));
}

// Dispatch and time

void ConsoleHost::ProcessEvents() {
  Dispatch();
}

// Runs what needs no line of the script. In a script the outside acts where the script lets it.
void ConsoleHost::Dispatch() {
  CatchUp();
  time_.TickWaiting();
  posted_.Run();
  if (source_ == nullptr) return;
  source_->SendWaiting();
  if (input_.IsTerminal()) DeliverOutside();
}

void ConsoleHost::Watch(EventSource* source) {
  source_ = source;
  input_.SendMeanwhile(source);
}

void ConsoleHost::ProcessWaiting() {
  Dispatch();
  if (source_ != nullptr && !input_.IsTerminal()) DeliverOutside();
}

// One step: what happened, up to the first arrival, which nothing may take the place of before the program
// has seen it.
EventSource::Delivered ConsoleHost::DeliverOutside() {
  EventSource::Delivered delivered = source_->DeliverNext();
  while (delivered == EventSource::Delivered::Event) delivered = source_->DeliverNext();
  return delivered;
}

// Lets the outside act for that time. With `oneEvent` it ends behind the first event, or where none can come;
// else it is one step, that takes the whole time.
void ConsoleHost::LetOutsideAct(std::chrono::milliseconds time, bool oneEvent) {
  using Delivered = EventSource::Delivered;
  const auto end = std::chrono::steady_clock::now() + time;
  bool hasArrived = false;
  while (!termination::IsAsked()) {
    source_->SendWaiting();
    if (oneEvent && (!source_->IsOpen() || source_->DeliverNext() != Delivered::Nothing)) return;
    if (!oneEvent && !hasArrived) hasArrived = DeliverOutside() == Delivered::Arrival;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    if (left.count() <= 0) return;
    std::array<pollfd, 3> waits = {
        pollfd{.fd = hasArrived ? -1 : source_->EventDescriptor(), .events = POLLIN, .revents = 0},
        pollfd{.fd = source_->SendDescriptor(), .events = POLLIN, .revents = 0},
        pollfd{.fd = termination::Descriptor(), .events = POLLIN, .revents = 0}};
    poll(waits.data(), waits.size(), static_cast<int>(left.count()));
  }
}

// What ends a rest beside a line of the script.
std::vector<int> ConsoleHost::Wakes() const {
  std::vector<int> wakes = {posted_.WakeDescriptor()};
  if (source_ != nullptr) wakes.insert(wakes.end(), {source_->EventDescriptor(), source_->SendDescriptor()});
  return wakes;
}

// Sleeps; whoever writes the script sees the windows live on.
void ConsoleHost::Rest(std::chrono::milliseconds time) {
  if (options_.recording != nullptr) {
    options_.recording->Author().Rest(time);
  } else {
    termination::Sleep(time);
  }
}

// In a script the outside acts while the time goes by, and behind the script's end wherever events are waited
// for. OPEN: there it is waited for a moment, so that a program which polls leaves others some of the
// machine. And where a line stands for many steps of the script's time, the machine's need not go by with it.
bool ConsoleHost::AwaitEvents(std::chrono::milliseconds sleep) {
  constexpr std::chrono::milliseconds kRest{10};
  out_.flush();
  stage_->ShowChanges();
  const bool letsAct = source_ != nullptr && source_->IsOpen() && !input_.IsTerminal();
  if (letsAct && sleep.count() > 0) {
    LetOutsideAct(sleep, false);
  } else if (again_.times == 0) {
    Rest(sleep);
  }
  Dispatch();
  if (input_.IsTerminal() && !input_.LineWithin(std::chrono::milliseconds(0), Wakes())) return true;
  if (options_.recording != nullptr) return RecordActOrTime(sleep);
  if (DeliverNext()) return true;
  if (letsAct && sleep.count() == 0) LetOutsideAct(kRest, true);
  return false;
}

// On a terminal timers, posted acts and the outside go on while the person thinks.
bool ConsoleHost::AwaitNextEvents() {
  out_.flush();
  Dispatch();
  if (options_.recording != nullptr) return RecordNext();
  if (!input_.IsTerminal() || input_.LineWithin(time_.UntilNextTick(), Wakes())) return DeliverNext();
  Dispatch();
  return true;
}

// What was printed and drawn before is seen during the pause.
void ConsoleHost::Pause(std::chrono::milliseconds time) {
  out_.flush();
  stage_->ShowChanges();
  if (input_.IsTerminal() || options_.recording != nullptr) Rest(time);
}

std::chrono::milliseconds ConsoleHost::DispatchTime() {
  if (!input_.IsTerminal()) return time_.Now();
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start_);
}

std::unique_ptr<Timer> ConsoleHost::StartTimer(std::chrono::milliseconds interval,
                                               std::function<void()> tick) {
  CatchUp();
  return time_.StartTimer(interval, std::move(tick));
}

void ConsoleHost::ServeEvents() {
  while (AwaitNextEvents()) continue;
  mainForm_->Events().OnClose();
}

// Where a person sits at the terminal the timers tick by real time; in a script by its own time alone.
void ConsoleHost::CatchUp() {
  if (!input_.IsTerminal()) return;
  const auto now = std::chrono::steady_clock::now();
  const auto gone = std::chrono::floor<std::chrono::milliseconds>(now - caughtUp_);
  caughtUp_ += gone;
  time_.CatchUp(gone);
}

bool ConsoleHost::DeliverNext() {
  if (again_.times > 0) {
    --again_.times;
    time_.Pass(again_.time);
    FinishLine();
    return true;
  }
  const auto line = input_.NextEventLine();
  if (!line) return false;
  const std::string fault = DoEventLine(*line, *this);
  if (!fault.empty()) {
    TellError("[roteiro] linha " + std::to_string(input_.lineNumber()) + ": " + ToUtf8(fault));
    throw ProcessEnd{kFaultyScriptStatus};
  }
  FinishLine();
  return true;
}

void ConsoleHost::FinishLine() {
  windows_->OnLineDone();
  stage_->ShowChanges();
}

// While a script is written, its lines are taken as they come: the person's acts, the ticks of timers, and
// what the network has. What ticks faster than a program's own timers only copies, as each line does.
bool ConsoleHost::RecordNext() {
  constexpr std::chrono::milliseconds kFastestOfPrograms{10};
  stage_->ShowChanges();
  const auto act = options_.recording->NextAct(time_.UntilNextTick(kFastestOfPrograms), Wakes());
  if (act) {
    PlayRecorded(*act);
  } else if (source_ != nullptr && IsReadable(source_->EventDescriptor())) {
    PlayRecorded({.line = "rede"});
  }
  return !termination::IsAsked();
}

// A step of a wait takes one line, whether or not the person did anything.
bool ConsoleHost::RecordActOrTime(std::chrono::milliseconds time) {
  while (!termination::IsAsked() && !PlayRecorded(options_.recording->ActOrTime(time))) continue;
  return !termination::IsAsked();
}

// An act on another window than the one in hand turns to that window first, by a line of its own. False for
// an act that came too late: its object has gone in the meantime.
bool ConsoleHost::PlayRecorded(PersonAct act) {
  const Form* window = std::exchange(act.window, nullptr);
  const std::string name = windows_->NameOf(window);
  if (!name.empty() && window != windows_->WindowInHand() && windows_->CanBeReached(*window)) {
    options_.recording->PutBack(std::exchange(act, {.line = ActLine({"foco", name})}));
  }
  options_.recording->Keep(act.line, windows_->Yields());
  if (!DoEventLine(act.line, *this).empty()) {
    options_.recording->TakeBack();
    return false;
  }
  FinishLine();
  return true;
}

}  // namespace tessera
