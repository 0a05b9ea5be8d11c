#include "controls/calendario.h"

#include "controls/key_code.h"

namespace tessera {
namespace {

constexpr std::string_view kMask = "##/##/####";

DateTime DayOf(DateTime date) {
  return std::chrono::floor<std::chrono::days>(date);
}

}  // namespace

Calendario::Calendario(DateTime today) {
  txtData_.SetMask(kMask);
  SetValue(today);
}

void Calendario::SetValue(DateTime date) {
  value_ = marked_ = DayOf(date);
  txtData_.SetText(DateText(value_));
}

void Calendario::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) viewIsOpen_ = false;
}

bool Calendario::KeyPress(char character) {
  return enabled_ && !viewIsOpen_ && Edited(txtData_.KeyPress(character));
}

bool Calendario::KeyDown(int code, bool shift) {
  if (!enabled_) return false;
  return viewIsOpen_ ? ViewKey(code) : Edited(txtData_.KeyDown(code, shift));
}

void Calendario::ButtonClick() {
  if (!enabled_) return;
  viewIsOpen_ = !viewIsOpen_;
  marked_ = value_;
}

bool Calendario::Pick(DateTime date) {
  if (!enabled_) return false;
  SetValue(date);
  viewIsOpen_ = false;
  return true;
}

// OPEN: a date left unfinished, or one that the calendar lacks, gives way to the last whole one, so that
// field and value never differ.
void Calendario::PerdeuFoco() {
  viewIsOpen_ = false;
  SetValue(value_);
}

std::array<Calendario::Day, Calendario::kWeeks * Calendario::kDaysOfWeek> Calendario::View() const {
  const std::chrono::year_month_day marked = Marked();
  const std::chrono::local_days first{marked.year() / marked.month() / 1};
  const auto beforeFirst = std::chrono::weekday(first) - std::chrono::Sunday;
  std::array<Day, kWeeks * kDaysOfWeek> view;
  std::chrono::local_days date = first - beforeFirst;
  for (Day& day : view) {
    day.date = std::chrono::year_month_day(date);
    day.inMonth = day.date.month() == marked.month();
    day.marked = day.date == marked;
    date += std::chrono::days{1};
  }
  return view;
}

void Calendario::ShowMonth(int monthsFromHere) {
  if (const auto shown = AddMonths(marked_, monthsFromHere)) marked_ = *shown;
}

bool Calendario::ViewKey(int code) {
  using std::chrono::days;
  switch (code) {
    case key::kLeft:
      MarkDay(days{-1});
      return false;
    case key::kRight:
      MarkDay(days{1});
      return false;
    case key::kUp:
      MarkDay(days{-7});
      return false;
    case key::kDown:
      MarkDay(days{7});
      return false;
    case key::kPageUp:
      ShowMonth(-1);
      return false;
    case key::kPageDown:
      ShowMonth(1);
      return false;
    case key::kEnter:
      return Pick(marked_);
    case key::kEscape:
      viewIsOpen_ = false;
      return false;
    default:
      return false;
  }
}

void Calendario::MarkDay(std::chrono::days daysFromHere) {
  if (const auto marked = AddSeconds(marked_, std::chrono::seconds{daysFromHere}.count())) marked_ = *marked;
}

// A text that is a whole date now becomes the value.
bool Calendario::Edited(bool changed) {
  if (!changed) return false;
  if (const auto date = ReadDate(txtData_.Text())) value_ = marked_ = DayOf(*date);
  return true;
}

}  // namespace tessera
