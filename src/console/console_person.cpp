// The part of the console host that has to do with the script's person: what the lines do to the windows.
#include <optional>
#include <utility>

#include "console/console_host.h"
#include "platform/system_reason.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "windows/event_state.h"
#include "windows/form.h"
#include "windows/picture_file.h"
#include "windows/window_directory.h"

namespace tessera {

namespace {

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

PointerPlace WithinControl(const Control& control, PointerPlace at) {
  const PointerPlace corner = control.Corner();
  return {at.x - corner.x, at.y - corner.y};
}

}  // namespace

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

// An object that takes the pointer, or else the window, keeps it from the first press to the last release.
void ConsoleHost::PressButton(MouseButton button) {
  Form& form = BringInHand();
  if (pressedButtons_.empty()) {
    Control* target = form.PointerTarget(form.Pointer());
    pressed_ = target == nullptr ? std::weak_ptr<Control>() : target->weak_from_this();
  }
  pressedButtons_.insert(button);
  const auto pressed = pressed_.lock();
  if (pressed == nullptr) return form.PressButton(button, form.Pointer());
  pressed->SetFocus();
  pressed->OnMouseDown(button, WithinControl(*pressed, form.Pointer()));
}

void ConsoleHost::ReleaseButton(MouseButton button) {
  Form& form = InHand();
  const auto pressed = pressed_.lock();
  pressedButtons_.erase(button);
  if (pressedButtons_.empty()) pressed_.reset();
  if (pressed == nullptr) return form.ReleaseButton(button, form.Pointer());
  pressed->OnMouseUp(button, WithinControl(*pressed, form.Pointer()));
}

void ConsoleHost::MovePointer(double line, double column) {
  Form& form = InHand();
  const Grid grid = form.Events().PlacementGrid();
  const PointerPlace to{.x = column * grid.TamCol, .y = line * grid.TamLin};
  const auto pressed = pressed_.lock();
  Control* target = pressedButtons_.empty() ? form.PointerTarget(to) : pressed.get();
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

bool ConsoleHost::TurnToWindow(std::string_view name) {
  Form* form = windows_->FindWindow(name);
  if (form == nullptr) return false;
  if (!form->Visible() || !windows_->CanBeReached(*form)) return true;
  form->Activate();
  form->Events().OnActivate();
  return true;
}

// What is hidden, or lies below a modal window, can't be closed.
bool ConsoleHost::CloseWindow(std::string_view name) {
  Form* form = name.empty() ? windows_->WindowInHand() : windows_->FindWindow(name);
  if (form == nullptr) return false;
  const bool isMain = form == mainForm_;
  if ((isMain || form->Visible()) && windows_->CanBeReached(*form)) form->Events().OnClose();
  return true;
}

// A tick may wait for the next line itself, and takes the times that are left.
void ConsoleHost::LetTimePass(std::chrono::milliseconds time, int times) {
  again_ = {.time = time, .times = times - 1};
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
