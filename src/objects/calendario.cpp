#include "objects/calendario.h"

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/date.h"
#include "text/one_based.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kCalendarSize = {.Width = 110, .Height = 20};
constexpr std::string_view kTxt = ".Txt";

Value Txt(const SuffixCall& call) {
  static_cast<CalendarioFamily&>(call.family).SetText(call.As<CalendarioControl>(), call.Text());
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".TXT", Txt},
};

}  // namespace

// The control

CalendarioControl::CalendarioControl(Form& form, ControlEvents& events, int index, DateTime today)
    : EntryControl(form, events, index, kCalendarSize), calendar_(today) {
  SetBackColor(kWindowColour);
}

void CalendarioControl::SetValue(DateTime date) {
  calendar_.SetValue(date);
  Refresh();
}

void CalendarioControl::ButtonClick() {
  calendar_.ButtonClick();
  Refresh();
}

void CalendarioControl::ShowMonth(int monthsFromHere) {
  calendar_.ShowMonth(monthsFromHere);
  Refresh();
}

void CalendarioControl::Pick(DateTime date) {
  Changed(calendar_.Pick(date));
}

EntryControl::Line CalendarioControl::Shown() const {
  return LineOf(calendar_.TxtData().Field());
}

void CalendarioControl::PlaceCaret(std::size_t anchor, std::size_t caret) {
  calendar_.PlaceCaret(anchor, caret);
  Refresh();
}

void CalendarioControl::PickDate(std::string_view date) {
  if (const auto day = ReadDate(date)) Pick(*day);
}

void CalendarioControl::OnKeyDown(int keyCode, KeyShift shift) {
  Changed(calendar_.KeyDown(keyCode, shift.shift));
}

void CalendarioControl::OnKeyPress(char character) {
  Changed(calendar_.KeyPress(character));
}

// The family

CalendarioFamily::CalendarioFamily(ObjectFrame& frame)
    : ObjectFamily(frame, "Calendario", kSuffixes, suffix::kOfEntries) {}

std::shared_ptr<Control> CalendarioFamily::NewControl(Form& form, std::string_view, int index) {
  const DateTime now = std::chrono::floor<std::chrono::seconds>(run().host.clock.Now());
  return std::make_shared<CalendarioControl>(form, *this, index, now);
}

void CalendarioFamily::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  Guard([&] {
    Place(control, arguments);
    SetWidth(control, arguments);
  });
  OnChange(control);
}

// A name behind a "$" is that of the variable which holds the name.
std::string CalendarioFamily::LookupName(std::string_view written) {
  if (!written.starts_with('$')) return std::string(written);
  return run().variables.VarRead(Mid(written, 2)).ToText();
}

void CalendarioFamily::SetText(CalendarioControl& calendar, std::string_view date) {
  const auto day = ReadDate(date);
  if (!day) FailType();
  calendar.SetValue(*day);
  OnChange(calendar);
}

void CalendarioFamily::OnChange(Control& control) {
  TellCompanion(control, kTxt, DateText(static_cast<CalendarioControl&>(control).State().Value()));
}

}  // namespace tessera
