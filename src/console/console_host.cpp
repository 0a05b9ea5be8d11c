#include "console/console_host.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "commands/dialog_commands.h"
#include "console/printed_texts.h"
#include "platform/system_reason.h"
#include "platform/termination.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/event_state.h"
#include "windows/form.h"
#include "windows/picture_file.h"
#include "windows/portrait.h"
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

// The keys of characters that have one of their own; 0 for others.
int KeyCodeOf(char character) {
  const char key = Upper(character);
  if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9') || key == ' ') return key;
  constexpr std::string_view kSigns = ",-./";  // their codes follow each other
  const std::size_t sign = kSigns.find(character);
  return sign == std::string_view::npos ? 0 : 188 + static_cast<int>(sign);
}

// The character that a key types; nothing for a key that types none.
std::optional<char> CharacterOf(int keyCode, KeyShift shift) {
  constexpr int kNumpad0 = 96;
  constexpr std::string_view kSigns = ",-./";
  if (shift.ctrl) return std::nullopt;
  if (keyCode == kKeyEnter || keyCode == ' ' || (keyCode >= '0' && keyCode <= '9')) {
    return static_cast<char>(keyCode);
  }
  if (keyCode >= 'A' && keyCode <= 'Z') return static_cast<char>(shift.shift ? keyCode : keyCode - 'A' + 'a');
  if (keyCode >= kNumpad0 && keyCode < kNumpad0 + 10) return static_cast<char>('0' + keyCode - kNumpad0);
  if (keyCode >= 188 && keyCode < 192) return kSigns[static_cast<std::size_t>(keyCode - 188)];
  return std::nullopt;
}

// Nothing measures here: letters have the width of a typewriter's, or half their height.
TextSize MeasureLetters(std::string_view text, const FontFace& font) {
  const double pixels = font.size * 96 / 72;
  const double width = Contains(Upper(font.name), "COURIER") ? 0.6 : 0.5;
  return {.width = std::ceil(static_cast<double>(text.size()) * pixels * width),
          .height = std::ceil(pixels * 1.2)};
}

PointerPlace WithinControl(const Control& control, PointerPlace at) {
  const PointerPlace corner = control.Corner();
  return {at.x - corner.x, at.y - corner.y};
}

bool IsYes(std::string_view answer) {
  return EqualsIgnoringCase(Trim(answer), "s") || EqualsIgnoringCase(Trim(answer), "sim");
}

// A window in memory; what is printed on it goes to the lead, and is painted where somebody takes a look.
class MemoryForm final : public Form {
 public:
  MemoryForm(StageLead& lead, TextPainter& texts, const Placement& place, FormEvents& events)
      : Form(events, place), lead_(lead), texts_(texts) {}
  ~MemoryForm() override { UnloadControls(); }

  Raster Portrait() {
    Raster seen = InSight();
    printed_.PaintOn(seen, texts_);
    PaintObjects(*this, &texts_, seen);
    return seen;
  }

  TextPainter* SurfaceTexts() override { return &texts_; }

  TextSize MeasureText(std::string_view text, const FontFace& font) const override {
    return MeasureLetters(text, font);
  }

  using Form::TakeScale;

 protected:
  void ShowPrinted(std::string_view text, const TextMask&) override {
    lead_.OnPrinted(text);
    printed_.Add({.text = std::string(text),
                  .font = Font,
                  .pixel = PixelOfColour(ForeColor),
                  .left = CurrentX,
                  .top = CurrentY});
  }
  void ShowErased() override { printed_.Clear(); }
  void ShowDrawn(const Spans& spans, Pixel) override { printed_.Cover(spans); }
  void ShowPainted(const PlacedPictures& pictures, bool erased) override {
    if (erased) printed_.Clear();
    for (const PlacedPicture& placed : pictures) printed_.Cover(placed, ClientSize());
  }
  void ServeModal() override { lead_.ServeModal(*this); }

 private:
  StageLead& lead_;
  TextPainter& texts_;
  PrintedTexts printed_;
};

class MemoryStage final : public Stage {
 public:
  explicit MemoryStage(TextPainter& texts) : texts_(texts) {}

  std::unique_ptr<Form> NewForm(std::string_view, const Placement& place, FormEvents& events,
                                StageLead& lead) override {
    return std::make_unique<MemoryForm>(lead, texts_, place, events);
  }
  void ResizeByPerson(Form& form, double width, double height) override {
    static_cast<MemoryForm&>(form).TakeScale(width, height);
  }
  Raster Portrait(Form& form) override { return static_cast<MemoryForm&>(form).Portrait(); }

 private:
  TextPainter& texts_;
};

}  // namespace

ConsoleHost::ConsoleHost(const ConsoleStreams& streams, ConsoleOptions options)
    : out_(streams.out),
      err_(streams.err),
      input_(streams.in, streams.descriptor, streams.isTerminal),
      options_(std::move(options)),
      texts_(options_.paper, [this](std::string_view problem) { TellMissingPart(problem); }),
      random_(std::random_device{}()),
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
  TellError(std::string("[falha] ").append(position).append(": ").append(IndentedUtf8(description)));
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

BoxAnswer ConsoleHost::ShowBox(const Box& box) {
  std::string line = "[";
  line += IconWord(box.icon);
  if (box.title != options_.programTitle) line.append(": ").append(ToUtf8(box.title));
  TellError(line.append("] ").append(IndentedUtf8(box.text)));
  TellPlace(box.text);
  if (box.buttons == BoxButtons::Ok) return BoxAnswer::Ok;
  if (box.buttons == BoxButtons::OkCancel) return options_.answerCancel ? BoxAnswer::Cancel : BoxAnswer::Ok;
  const auto answer = input_.NextLine();
  if (!answer) return box.defaultAnswer;
  return IsYes(*answer) ? BoxAnswer::Yes : BoxAnswer::No;
}

TextInputAnswer ConsoleHost::AskText(const TextInput& input) {
  TellError("[entrada] " + IndentedUtf8(input.prompt));
  auto text = input_.NextLine();
  if (!text) return {InputEnd::Cancelled, {}};
  return {InputEnd::Confirmed, std::move(*text)};
}

std::optional<std::string> ConsoleHost::AskDialog(std::string_view mode, std::string_view title) {
  const std::string behind = title.empty() ? "" : " " + IndentedUtf8(title);
  TellError(std::string("[dialogo] ").append(mode).append(behind));
  auto answer = input_.NextLine();
  if (!answer || answer->empty()) return std::nullopt;
  return answer;
}

std::optional<std::string> ConsoleHost::AskFile(const FileRequest& request) {
  return AskDialog(request.save ? "SALVAR" : "ABRIR", request.title);
}

// A line that is no number is no colour, and Cancel.
std::optional<std::int32_t> ConsoleHost::AskColour(std::string_view title) {
  const auto answer = AskDialog("COR", title);
  const auto number = answer ? WholeNumber(*answer) : std::nullopt;
  if (!number || std::abs(*number) > 0x7FFFFFFF) return std::nullopt;
  return static_cast<std::int32_t>(*number);
}

std::optional<ChosenFont> ConsoleHost::AskFont(std::string_view title) {
  const auto answer = AskDialog("FONTE", title);
  if (!answer) return std::nullopt;
  return FontOfRecord(*answer);
}

std::optional<std::string> ConsoleHost::AskPrinter(std::string_view title) {
  return AskDialog("IMPRESSORA", title);
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

bool ConsoleHost::LineWithin(std::optional<std::chrono::milliseconds> time) const {
  std::vector<int> wakes = {posted_.WakeDescriptor()};
  if (source_ != nullptr) wakes.insert(wakes.end(), {source_->EventDescriptor(), source_->SendDescriptor()});
  return input_.LineWithin(time, wakes);
}

// In a script the outside acts while the time goes by, and behind the script's end wherever events are waited
// for. OPEN: there it is waited for a moment, so that a program which polls leaves others some of the
// machine.
bool ConsoleHost::AwaitEvents(std::chrono::milliseconds sleep) {
  constexpr std::chrono::milliseconds kRest{10};
  out_.flush();
  stage_->ShowChanges();
  const bool letsAct = source_ != nullptr && source_->IsOpen() && !input_.IsTerminal();
  if (letsAct && sleep.count() > 0) {
    LetOutsideAct(sleep, false);
  } else {
    termination::Sleep(sleep);
  }
  Dispatch();
  if (input_.IsTerminal() && !LineWithin(std::chrono::milliseconds(0))) return true;
  if (DeliverNext()) return true;
  if (letsAct && sleep.count() == 0) LetOutsideAct(kRest, true);
  return false;
}

// On a terminal timers, posted acts and the outside go on while the person thinks.
bool ConsoleHost::AwaitNextEvents() {
  out_.flush();
  Dispatch();
  if (!input_.IsTerminal() || LineWithin(time_.UntilNextTick())) return DeliverNext();
  Dispatch();
  return true;
}

// What was printed and drawn before is seen during the pause.
void ConsoleHost::Pause(std::chrono::milliseconds time) {
  out_.flush();
  stage_->ShowChanges();
  if (input_.IsTerminal()) termination::Sleep(time);
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
  const auto line = input_.NextEventLine();
  if (!line) return false;
  const std::string fault = DoEventLine(*line, *this);
  if (!fault.empty()) {
    TellError("[roteiro] linha " + std::to_string(input_.lineNumber()) + ": " + ToUtf8(fault));
    throw ProcessEnd{kFaultyScriptStatus};
  }
  windows_->OnLineDone();
  stage_->ShowChanges();
  return true;
}

// What the script's person does

Form& ConsoleHost::InHand() const {
  return *windows_->WindowInHand();
}

// Whoever acts on a window has it in front.
Form& ConsoleHost::BringInHand() {
  Form& form = InHand();
  form.Events().OnActivate();
  return form;
}

PersonObject* ConsoleHost::FindObject(std::string_view name) {
  return windows_->FindObject(name);
}

bool ConsoleHost::TurnTo(PersonObject& object) {
  Form* form = object.Window();
  if (form == nullptr) return object.IsInReach();
  if (!object.IsInReach() || !form->Visible() || !windows_->CanBeReached(*form)) return false;
  form->Events().OnActivate();
  object.SetFocus();
  return true;
}

void ConsoleHost::Click() {
  PressButton(MouseButton::Left);
  ReleaseButton(MouseButton::Left);
}

void ConsoleHost::DoubleClick() {
  Click();
  Form& form = InHand();
  if (Control* target = form.PointerTarget(form.Pointer())) return target->DoubleClick();
  form.PressButtonAgain(form.Pointer());
  form.ReleaseButton(MouseButton::Left, form.Pointer());
}

// Over an object that takes the pointer a press keeps it there until the release.
void ConsoleHost::PressButton(MouseButton button) {
  Form& form = BringInHand();
  Control* target = form.PointerTarget(form.Pointer());
  if (target == nullptr) return form.PressButton(button, form.Pointer());
  target->SetFocus();
  pressed_ = target->weak_from_this();
  target->OnMouseDown(button, WithinControl(*target, form.Pointer()));
}

void ConsoleHost::ReleaseButton(MouseButton button) {
  Form& form = InHand();
  const auto pressed = std::exchange(pressed_, {}).lock();
  if (pressed == nullptr) return form.ReleaseButton(button, form.Pointer());
  pressed->OnMouseUp(button, WithinControl(*pressed, form.Pointer()));
}

void ConsoleHost::MovePointer(double line, double column) {
  Form& form = InHand();
  const Grid grid = form.Events().PlacementGrid();
  const PointerPlace to{.x = column * grid.TamCol, .y = line * grid.TamLin};
  const auto pressed = pressed_.lock();
  Control* target = pressed ? pressed.get() : form.PointerTarget(to);
  if (target == nullptr) return form.MovePointer(to);
  form.TakePointer(to);
  target->OnMouseMove(WithinControl(*target, to));
}

void ConsoleHost::TypeText(std::string_view text) {
  for (const char character : text) {
    const int key = KeyCodeOf(character);
    Form& form = BringInHand();
    if (key != 0 && form.PressKey(key, {.shift = character >= 'A' && character <= 'Z'})) continue;
    form.TypeCharacter(character);
    if (key != 0) ReleaseKey(key, {});
  }
}

void ConsoleHost::PressKey(int keyCode, KeyShift shift) {
  Form& form = BringInHand();
  if (form.PressKey(keyCode, shift)) return;
  if (const auto character = CharacterOf(keyCode, shift)) form.TypeCharacter(*character);
}

void ConsoleHost::ReleaseKey(int keyCode, KeyShift shift) {
  InHand().ReleaseKey(keyCode, shift);
}

// The frame of a fixed window can't be taken.
void ConsoleHost::ResizeWindow(double lines, double columns) {
  if (!InHand().Style().Sizable) return;
  stage_->ResizeByPerson(InHand(), PixelsOfTwips(columns * kWindowColumnTwips),
                         PixelsOfTwips(lines * kWindowLineTwips));
}

// What is hidden, or lies below a modal window, can't be closed.
bool ConsoleHost::CloseWindow(std::string_view name) {
  Form* form = name.empty() ? windows_->WindowInHand() : windows_->FindWindow(name);
  if (form == nullptr) return false;
  const bool isMain = form == mainForm_;
  if ((isMain || form->Visible()) && windows_->CanBeReached(*form)) form->Events().OnClose();
  return true;
}

void ConsoleHost::LetTimePass(std::chrono::milliseconds time) {
  time_.Pass(time);
}

// The script's paths are those of whoever gave it: from the process' own folder.
std::string ConsoleHost::TakePortrait(std::string_view path) {
  const FoundCodec found = options_.findCodec();
  if (found.codec == nullptr) return found.problem;
  const std::string portrait = found.codec->EncodePage(stage_->Portrait(InHand()));
  const int error = WritePicture(portrait, files_, ToUtf8(path));
  return error == 0 ? std::string() : FromUtf8Lossy(SystemReason(error));
}

void ConsoleHost::LetNetworkAct(std::chrono::milliseconds time) {
  if (source_ != nullptr) LetOutsideAct(time, true);
}

}  // namespace tessera
