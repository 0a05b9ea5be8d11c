#include "controls/calendario.h"

#include <algorithm>

#include "controls/key_code.h"

namespace tessera {
namespace {

constexpr char kOpenPlace = '_';
constexpr char kSeparator = '/';

DateTime DayOf(DateTime date) {
  return std::chrono::floor<std::chrono::days>(date);
}

}  // namespace

void Calendario::SetValue(DateTime date) {
  value_ = marked_ = DayOf(date);
  const std::chrono::year_month_day day = CalendarDay(value_);
  // Day 0 too shows as a date, not as a time of day.
  const auto put = [](unsigned number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
  };
  txtData_ = put(static_cast<unsigned>(day.day()), 2) + kSeparator +
             put(static_cast<unsigned>(day.month()), 2) + kSeparator +
             put(static_cast<unsigned>(static_cast<int>(day.year())), 4);
  caret_ = 0;
}

void Calendario::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (!enabled) viewIsOpen_ = false;
}

void Calendario::PlaceCaret(std::size_t caret) {
  caret_ = std::min(caret, kMask.size());
}

bool Calendario::KeyPress(char character) {
  if (!enabled_ || viewIsOpen_ || character < '0' || character > '9') return false;
  if (caret_ < kMask.size() && kMask[caret_] == kSeparator) ++caret_;
  if (caret_ == kMask.size()) return false;
  const bool changed = Put(caret_, character);
  ++caret_;
  return changed;
}

bool Calendario::KeyDown(int code) {
  if (!enabled_) return false;
  return viewIsOpen_ ? ViewKey(code) : FieldKey(code);
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

bool Calendario::FieldKey(int code) {
  switch (code) {
    case key::kLeft:
      caret_ -= caret_ > 0;
      return false;
    case key::kRight:
      PlaceCaret(caret_ + 1);
      return false;
    case key::kHome:
      caret_ = 0;
      return false;
    case key::kEnd:
      caret_ = kMask.size();
      return false;
    case key::kBackspace:
      if (caret_ > 0 && kMask[caret_ - 1] == kSeparator) --caret_;
      return caret_ > 0 && Put(--caret_, kOpenPlace);
    case key::kDelete:
      return caret_ < kMask.size() && kMask[caret_] != kSeparator && Put(caret_, kOpenPlace);
    default:
      return false;
  }
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

// Whether the place held another character. A text that is a whole date now becomes the value.
bool Calendario::Put(std::size_t place, char character) {
  if (txtData_[place] == character) return false;
  txtData_[place] = character;
  if (const auto date = ReadDate(txtData_)) value_ = marked_ = DayOf(*date);
  return true;
}

}  // namespace tessera
